#include "app/about.h"

#include <array>
#include <filesystem>
#include <string_view>

namespace halden {

namespace {

constexpr std::string_view product_line = "Halden";
constexpr std::string_view version_line = "Version: 7.0";
constexpr std::string_view legal_line = "2026. Free software, GPL 3 or later, no warranty.";

constexpr std::array<std::string_view, 6> manuals = {
    "Halden-SW-HELP-EN-V2.0.pdf", "Halden-SW-Help-FR_V2.0.pdf", "Halden-SW-Help-DE_V2.0.pdf",
    "Halden-SW-HELP-ES_V2.0.pdf", "Halden-SW-Help-IT_V2.0.pdf", "Halden-SW-Help-pt-BR_V2.0.pdf"};

std::string centred(std::string_view line) {
  return std::string(legal_line.size() - line.size(), ' ') + std::string(line);
}

}  // namespace

std::string about_text() {
  return centred(product_line) + "\n\n" + centred(version_line) + "\n\n" + std::string(legal_line);
}

std::string manual_path(const std::string& program_folder, int index) {
  if (index < 0 || index >= static_cast<int>(manuals.size())) return {};
  constexpr char separator = static_cast<char>(std::filesystem::path::preferred_separator);
  return program_folder + separator + "help" + separator +
         std::string(manuals[static_cast<std::size_t>(index)]);
}

}  // namespace halden
