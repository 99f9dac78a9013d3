#include "filetools/printing/text_printing.h"

#include <algorithm>
#include <string_view>

#include "filetools/line_reader.h"
#include "filetools/shown_text.h"
#include "readings/numbers.h"

namespace halden {

namespace {

// In 1/1440 inch.
constexpr double left = 600;
constexpr double top = 600;
constexpr double bottom_margin = 600;
constexpr double right_margin = 600;

constexpr double spare_characters = 3;

// The document while it is printed.
class TextDocument {
 public:
  TextDocument(Printer& printer, const PrintProgress& progress) : printer_(printer), progress_(progress) {
    printer_.set_orientation(Orientation::landscape);
    printer_.set_font({.family = "Courier New", .points = 10.0, .fixed_pitch = true});
    const PageSize page = printer_.page_size();
    printable_width_ = page.width - right_margin;
    bottom_ = page.height - bottom_margin;
    line_height_ = printer_.line_height();
  }

  // False when nothing more is to be printed.
  bool print(const std::string& line) {
    const double width = printer_.text_width(line);
    if (width <= printable_width_) return print_piece(line);
    std::size_t left_over = characters_in(line);
    const std::size_t length = piece_length(left_over, width, printable_width_);
    std::string_view rest = line;
    for (; left_over > length; left_over -= length) {
      const std::string_view behind = behind_characters(rest, length);
      if (!print_piece(rest.substr(0, rest.size() - behind.size()))) return false;
      rest = behind;
    }
    return print_piece(rest);
  }

  PrintedText end(FileFailure file) {
    PrintedText result{.pages = pages_, .cancelled = cancelled_, .file = file};
    if (cancelled_ || file != FileFailure::none)
      printer_.discard();
    else
      result.printer = printer_.finish();
    return result;
  }

 private:
  bool print_piece(std::string_view piece) {
    if ((pages_ == 0 || y_ > bottom_) && !begin_page()) return false;
    printer_.print_line(left, y_, std::string(piece));
    y_ += line_height_;
    return true;
  }

  // The printer begins the first page by itself.
  bool begin_page() {
    if (pages_ > 0 && !printer_.new_page()) return false;
    y_ = top;
    cancelled_ = !progress_(++pages_);
    return !cancelled_;
  }

  Printer& printer_;
  const PrintProgress& progress_;
  double printable_width_ = 0;
  double bottom_ = 0;
  double line_height_ = 0;
  double y_ = top;
  std::size_t pages_ = 0;
  bool cancelled_ = false;
};

}  // namespace

std::size_t piece_length(std::size_t characters, double printed_width, double printable_width) {
  const auto length = static_cast<double>(characters);
  const double fitting = round_half_even(length * printable_width / printed_width - spare_characters);
  return static_cast<std::size_t>(std::max(1.0, std::min(length, fitting)));
}

PrintedText print_file(Printer& printer, Files& files, const std::string& path,
                       const PrintProgress& progress) {
  TextDocument document(printer, progress);
  LineReader reader(files, path);
  for (auto line = reader.next(); line; line = reader.next())
    if (!document.print(shown_text(line->bytes))) break;
  return document.end(reader.failure());
}

PrintedText print_lines(Printer& printer, std::span<const std::string> lines, const PrintProgress& progress) {
  TextDocument document(printer, progress);
  for (const std::string& line : lines)
    if (!document.print(line)) break;
  return document.end(FileFailure::none);
}

}  // namespace halden
