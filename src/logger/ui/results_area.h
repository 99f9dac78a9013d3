// The files of this session under their title, with the button that opens their folder.
#pragma once

#include <QWidget>

#include "logger/ui/scaled_sizes.h"
#include "screen/ui/form_window.h"

class QListWidget;
class QVBoxLayout;

namespace halden {

class ResultsArea : public QWidget {
  Q_OBJECT

 public:
  // Both outlive the area.
  ResultsArea(FormWindow& form, ScaledSizes& sizes, QWidget* parent);

 private:
  void build_title(QVBoxLayout& column);
  void build_list(QVBoxLayout& column);

  FormWindow& form_;
  ScaledSizes& sizes_;
};

}  // namespace halden
