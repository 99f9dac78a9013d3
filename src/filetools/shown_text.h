// The bytes of a text file as UTF-8 that can be shown, cut and measured, whatever the file holds.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace halden {

// Each byte that is not part of valid UTF-8 becomes U+FFFD. Each control character, tabs included, becomes
// one blank: columns keep their places.
std::string shown_text(std::string_view bytes);

// Of valid UTF-8; what stands combined on the screen counts as several.
std::size_t characters_in(std::string_view text);

// The text behind its first `count` characters; empty when it has no more.
std::string_view behind_characters(std::string_view text, std::size_t count);

}  // namespace halden
