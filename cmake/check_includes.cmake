# Fails when a file of a room includes a header of a room that is not listed for it.
#
#   cmake -P check_includes.cmake ARGUMENTS-FILE
#
# The file sets three variables: src, the folder of all rooms; allowed, the folders whose headers may be
# included; files, what to search.

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_ARGV3})

foreach(file ${files})
  file(STRINGS ${file} includes REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"]")
  foreach(include ${includes})
    string(REGEX REPLACE "^[^<\"]*[<\"]([^>\"]*)[>\"].*$" "\\1" header "${include}")
    string(REGEX MATCH "<" angled "${include}")
    if(angled AND NOT EXISTS ${src}/${header})
      continue()  # of the system or of a library
    endif()
    get_filename_component(folder "${header}" DIRECTORY)
    if(NOT folder IN_LIST allowed)
      file(RELATIVE_PATH place ${src} ${file})
      string(REPLACE ";" " " rooms "${allowed}")
      # Indented, so that CMake does not break the line.
      message(SEND_ERROR "  ${place} may not include ${header}: its room uses ${rooms} (src/CMakeLists.txt)")
    endif()
  endforeach()
endforeach()
