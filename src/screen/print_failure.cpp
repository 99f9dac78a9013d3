#include "screen/print_failure.h"

#include "screen/captions.h"

namespace halden {

std::string print_failure_sentence(PrintFailure failure, std::int16_t language) {
  switch (failure) {
    case PrintFailure::none:
      break;
    case PrintFailure::no_printer:
      return language == chinese ? "此電腦尚未設定印表機。" : "No printer is set up on this computer.";
    case PrintFailure::failed:
      return language == chinese ? "無法列印。" : "The document could not be printed.";
  }
  return {};
}

}  // namespace halden
