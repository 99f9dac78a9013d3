// The printers of this computer. Distances are in 1/1440 inch from the page's top left corner. Printouts
// always use light colours.
//
// A document of lines may take long and let events run meanwhile. A window that is to be printed then is not.
#pragma once

#include <string>
#include <vector>

namespace halden {

enum class Orientation { portrait, landscape };

struct PrintFont {
  std::string family;
  double points = 10.0;
  bool bold = false;
  bool fixed_pitch = false;  // where the family is not installed, another one of fixed pitch takes its place
};

struct PageSize {
  double width = 0.0;
  double height = 0.0;
};

// Where a document goes. Without either it is the default printer.
struct PrintTarget {
  std::string printer;   // the name of one that is set up
  std::string pdf_path;  // of a file to write instead
};

enum class PrintFailure { none, no_printer, failed, busy };

class Printer {
 public:
  virtual ~Printer() = default;

  // The names of those that are set up, the default one first.
  virtual std::vector<std::string> printers() { return {}; }

  // Of all documents from the next one on.
  virtual void set_target(const PrintTarget& target) = 0;

  // Takes effect with the next document.
  virtual void set_orientation(Orientation orientation) = 0;
  virtual void set_font(const PrintFont& font) = 0;

  virtual PageSize page_size() = 0;
  virtual double text_width(const std::string& text) = 0;
  virtual double line_height() = 0;

  virtual void print_line(double left, double top, const std::string& text) = 0;

  // False when the document has failed: printing on is useless, finish() says why.
  virtual bool new_page() = 0;

  // An image of a window by its name ("MeterRec"), as wide as the page allows. While lines are printed it is
  // refused, and the next finish() says `busy` and leaves the lines alone.
  virtual void print_window(const std::string& window_name) = 0;

  // Sends what was printed and starts a new document.
  virtual PrintFailure finish() = 0;

  // Starts a new document without sending what was printed, as far as the system lets a print job go.
  virtual void discard() = 0;

  // Where the last document went: the name of the printer, or the path of a file. Empty where that is
  // unknown.
  virtual std::string destination() const { return {}; }
};

}  // namespace halden
