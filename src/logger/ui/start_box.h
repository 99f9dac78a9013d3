// A box for the start of the records: as large as the cards beside it, and marked as one the user may edit.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

namespace halden {

class StartBox : public QWidget {
  Q_OBJECT

 public:
  StartBox(const QString& label_name, const QString& value_name, QWidget* parent);

  QLabel& caption() { return *caption_; }
  QLineEdit& value() { return *value_; }

  // Blanks in front of the caption stand left of where the caption of a card begins.
  void set_caption(const QString& caption);
  void set_caption_font(const QFont& font);

  // The size of the digits, from `smallest` to `largest`, at which the text fits.
  int largest_for(const QString& text, int smallest, int largest) const;
  void set_size(int pixels);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void arrange();

  QLineEdit* value_;
  QLabel* caption_;
};

}  // namespace halden
