// The folders the program uses, and the port it starts with.
#pragma once

#include <string>

namespace halden {

// Folders in UTF-8.
struct StartOptions {
  std::string work_folder = ".";     // holds language.pha and commport.dat
  std::string program_folder = ".";  // holds help/
  std::string temporary_folder;      // for recorded lines when the working folder cannot be written
  int first_port = 0;                // the port to start with where there is no commport.dat; 0 asks for one
};

}  // namespace halden
