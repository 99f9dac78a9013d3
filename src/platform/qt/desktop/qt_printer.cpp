#include "platform/qt/desktop/qt_printer.h"

#include <QFile>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPrinterInfo>
#include <utility>

namespace halden {

namespace {

constexpr double units_per_inch = 1440.0;
constexpr double units_per_point = 20.0;

constexpr const char* document_name = "Halden";

double to_units(double dots, int dots_per_inch) { return dots * units_per_inch / dots_per_inch; }
double to_dots(double units, int dots_per_inch) { return units * dots_per_inch / units_per_inch; }

QPageLayout::Orientation page_orientation(Orientation orientation) {
  return orientation == Orientation::landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

}  // namespace

QtPrinter::QtPrinter() { set_font({}); }

// A document that was not finished belongs to a handler that the program end cut short; it is not printed.
QtPrinter::~QtPrinter() {
  if (painter_ && painter_->isActive()) printer_->abort();
  close_document();
}

void QtPrinter::add_window(std::string name, std::function<QImage()> paper_image) {
  windows_[std::move(name)] = std::move(paper_image);
}

std::vector<std::string> QtPrinter::printers() {
  QStringList names = QPrinterInfo::availablePrinterNames();
  if (const qsizetype at = names.indexOf(QPrinterInfo::defaultPrinterName()); at > 0) names.move(at, 0);
  std::vector<std::string> found;
  for (const QString& name : names) found.push_back(name.toStdString());
  return found;
}

void QtPrinter::set_orientation(Orientation orientation) {
  orientation_ = orientation;
  if (printer_ && !painter_) printer_->setPageOrientation(page_orientation(orientation));
}

void QtPrinter::set_font(const PrintFont& font) {
  font_ = font.family.empty() ? QFont() : QFont(QString::fromStdString(font.family));
  font_.setPointSizeF(font.points);
  font_.setBold(font.bold);
  font_.setFixedPitch(font.fixed_pitch);
  if (font.fixed_pitch) font_.setStyleHint(QFont::Monospace);
}

PageSize QtPrinter::page_size() {
  const QRectF page = document().pageLayout().paintRect(QPageLayout::Point);
  return {page.width() * units_per_point, page.height() * units_per_point};
}

double QtPrinter::text_width(const std::string& text) {
  const QFontMetricsF metrics(font_, &document());
  return to_units(metrics.horizontalAdvance(QString::fromStdString(text)), document().logicalDpiX());
}

double QtPrinter::line_height() {
  const QFontMetricsF metrics(font_, &document());
  return to_units(metrics.lineSpacing(), document().logicalDpiY());
}

void QtPrinter::print_line(double left, double top, const std::string& text) {
  if (!begin()) return;
  prints_lines_ = true;
  painter_->setFont(font_);
  painter_->setPen(Qt::black);
  const double baseline = to_dots(top, printer_->logicalDpiY()) + painter_->fontMetrics().ascent();
  painter_->drawText(QPointF(to_dots(left, printer_->logicalDpiX()), baseline), QString::fromStdString(text));
}

bool QtPrinter::new_page() {
  if (!begin()) return false;
  if (!printer_->newPage()) failure_ = PrintFailure::failed;
  return failure_ == PrintFailure::none;
}

void QtPrinter::print_window(const std::string& window_name) {
  refused_ = prints_lines_;
  if (refused_) return;
  const auto window = windows_.find(window_name);
  const QImage image = window == windows_.end() ? QImage() : window->second();
  if (image.isNull())
    failure_ = PrintFailure::failed;
  else if (begin())
    draw(image);
}

void QtPrinter::draw(const QImage& image) {
  const QSizeF page = printer_->pageLayout().paintRectPixels(printer_->resolution()).size();
  const QSizeF size = QSizeF(image.size()).scaled(page, Qt::KeepAspectRatio);
  painter_->setRenderHint(QPainter::SmoothPixmapTransform);
  painter_->drawImage(QRectF(QPointF(0, 0), size), image);
}

PrintFailure QtPrinter::finish() {
  if (std::exchange(refused_, false)) return PrintFailure::busy;
  const bool printed = painter_ && painter_->isActive();
  if (printed && (!painter_->end() || printer_->printerState() == QPrinter::Error))
    failure_ = PrintFailure::failed;
  if (printed) destination_ = prints_to_file() ? printer_->outputFileName() : printer_->printerName();
  close_document();
  return std::exchange(failure_, PrintFailure::none);
}

// Where Qt cannot abort a print job, as with PDF files, it ends with the pages printed so far.
void QtPrinter::discard() {
  const bool printed = painter_ && painter_->isActive();
  if (printed) printer_->abort();
  close_document();
  if (printed && prints_to_file()) QFile::remove(QString::fromStdString(target_.pdf_path));
  failure_ = PrintFailure::none;
}

// The painter is destroyed before the printer it paints on.
void QtPrinter::close_document() {
  painter_.reset();
  printer_.reset();
  prints_lines_ = false;
}

// Distances are measured from the corner of the printable area: no margins beyond those of the printer.
QPrinter& QtPrinter::document() {
  if (printer_) return *printer_;
  printer_ = new_printer();
  printer_->setDocName(QString::fromUtf8(document_name));
  const QPageLayout layout = printer_->pageLayout();
  printer_->setPageMargins(layout.minimumMargins(), layout.units());
  printer_->setPageOrientation(page_orientation(orientation_));
  return *printer_;
}

std::unique_ptr<QPrinter> QtPrinter::new_printer() const {
  const QPrinterInfo named = QPrinterInfo::printerInfo(QString::fromStdString(target_.printer));
  if (!named.isNull()) return std::make_unique<QPrinter>(named, QPrinter::HighResolution);
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (!prints_to_file()) return printer;
  printer->setOutputFormat(QPrinter::PdfFormat);  // whatever the name ends in
  printer->setOutputFileName(QString::fromStdString(target_.pdf_path));
  return printer;
}

bool QtPrinter::begin() {
  if (painter_) return painter_->isActive();
  // On a computer without any printer Qt would write a PDF file, here without a name.
  if (!prints_to_file() && document().outputFormat() == QPrinter::PdfFormat) {
    failure_ = PrintFailure::no_printer;
    return false;
  }
  painter_ = std::make_unique<QPainter>();
  if (!painter_->begin(&document())) failure_ = PrintFailure::failed;
  return painter_->isActive();
}

}  // namespace halden
