// A printer of this computer, or a PDF file in its place.
#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QString>
#include <functional>
#include <map>
#include <memory>

#include "platform/printer.h"

namespace halden {

class QtPrinter : public Printer {
 public:
  QtPrinter();
  ~QtPrinter() override;

  // Makes a window printable: `paper_image` draws it for light paper.
  void add_window(std::string name, std::function<QImage()> paper_image);

  std::vector<std::string> printers() override;
  void set_target(const PrintTarget& target) override { target_ = target; }
  void set_orientation(Orientation orientation) override;
  void set_font(const PrintFont& font) override;
  PageSize page_size() override;
  double text_width(const std::string& text) override;
  double line_height() override;
  void print_line(double left, double top, const std::string& text) override;
  bool new_page() override;
  void print_window(const std::string& window_name) override;
  PrintFailure finish() override;
  void discard() override;
  std::string destination() const override { return destination_.toStdString(); }

 private:
  QPrinter& document();
  std::unique_ptr<QPrinter> new_printer() const;
  bool prints_to_file() const { return !target_.pdf_path.empty(); }
  bool begin();
  void close_document();
  void draw(const QImage& image);

  PrintTarget target_;
  QString destination_;
  std::map<std::string, std::function<QImage()>> windows_;
  Orientation orientation_ = Orientation::portrait;
  QFont font_;

  // In this order, so that the painter is destroyed before the printer it paints on.
  std::unique_ptr<QPrinter> printer_;
  std::unique_ptr<QPainter> painter_;
  PrintFailure failure_ = PrintFailure::none;
  bool prints_lines_ = false;
  bool refused_ = false;  // a window, while lines are printed
};

}  // namespace halden
