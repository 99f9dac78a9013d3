// What a stored file is, by its beginning; that decides which window shows it.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace halden {

enum class FileKind { power, harmonics, waveform, hardcopy, text };

inline constexpr std::array file_kinds = {FileKind::power, FileKind::harmonics, FileKind::waveform,
                                          FileKind::hardcopy, FileKind::text};

// "power", "harmonics", ...: in the file of recent files and in the names of menu entries.
std::string_view kind_name(FileKind kind);

// Text for whatever is none of the others, also a file that cannot be read.
FileKind kind_of_file(Files& files, const std::string& path);

}  // namespace halden
