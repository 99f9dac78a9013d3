// The language of what Qt itself says: buttons of message boxes, file and print dialogs.
#pragma once

#include <QTranslator>

#include "screen/language.h"

namespace halden {

class BoxLanguage {
 public:
  // Later boxes, and those that are open, speak this language. Without Qt's own translation, which may not be
  // installed, buttons and the labels of a file dialog are still translated.
  void follow(Language language);

 private:
  // The texts of boxes in Traditional Chinese.
  class Boxes : public QTranslator {
   public:
    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override;
    bool isEmpty() const override { return false; }
  };

  Language language_ = Language::english;
  Boxes boxes_;
  QTranslator qt_;
};

}  // namespace halden
