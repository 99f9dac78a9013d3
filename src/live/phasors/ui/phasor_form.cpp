#include "live/phasors/ui/phasor_form.h"

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QShortcut>
#include <string>

#include "live/phasors/phasor_form.h"
#include "live/phasors/ui/phasor_page.h"
#include "screen/ui/menu_corner.h"

namespace halden {

namespace {

constexpr QSize smallest_size(640, 440);
constexpr QSize start_size(1100, 760);
constexpr int hint_width = 420;
constexpr int hint_margin = 16;

constexpr const char* print_entry = "print_phasor";

// Keeps its child in the middle, as large as fits with fixed proportions.
class KeptProportions : public QWidget {
 public:
  KeptProportions(QSizeF proportions, QWidget* parent) : QWidget(parent), proportions_(proportions) {}

  void set_child(QWidget& child) { child_ = &child; }

 protected:
  void resizeEvent(QResizeEvent*) override {
    QRect place(QPoint(), proportions_.scaled(size(), Qt::KeepAspectRatio).toSize());
    place.moveCenter(rect().center());
    child_->setGeometry(place);
  }

 private:
  QSizeF proportions_;
  QWidget* child_ = nullptr;
};

// What became of a print, at the end of the menu bar. The tooltip holds a long path in full.
void build_hint(FormWindow& form) {
  auto* const hint = new QLabel(&form);
  hint->setObjectName(to_qt(status_hint));
  hint->setFont(form.menuBar()->font());
  hint->setTextFormat(Qt::PlainText);
  hint->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  hint->setFixedWidth(hint_width);
  hint->setContentsMargins(0, 0, hint_margin, 0);
  form.mirror().tie(std::string(status_hint), [hint](const Control& now) {
    hint->setText(to_qt(now.text));
    hint->setToolTip(to_qt(now.text));
    hint->setAccessibleName(to_qt(now.accessible_name));
    hint->setAccessibleDescription(to_qt(now.text));
  });
  new MenuCorner(form, *hint);
  form.keep_off_paper(*hint);
}

void build_menu_bar(FormWindow& form) {
  QAction* const print = form.menuBar()->addAction(to_qt(form.window()[print_entry].text));
  print->setObjectName(QLatin1String(print_entry));
  print->setShortcut(QKeySequence(QStringLiteral("Ctrl+P")));
  form.mirror().tie(print_entry, *print);
  QObject::connect(print, &QAction::triggered, &form, [&form] { form.click(print_entry); });
  build_hint(form);
}

QWidget* build(FormWindow& form) {
  build_menu_bar(form);
  auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), &form);
  QObject::connect(escape, &QShortcut::activated, &form, &QWidget::close);
  auto* const frame =
      new KeptProportions(QSizeF(double{phasor_page_width}, double{phasor_page_height}), &form);
  frame->set_child(*new PhasorPage(form, frame));
  return frame;
}

}  // namespace

FormDesign phasor_form_design() { return {smallest_size, start_size, build}; }

}  // namespace halden
