#include "app/ui/box_language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <array>
#include <string_view>

#include "screen/ui/mirror.h"

namespace halden {

namespace {

constexpr std::array texts = {Text{"OK", "確定"},
                              Text{"&OK", "確定(&O)"},
                              Text{"&Yes", "是(&Y)"},
                              Text{"&No", "否(&N)"},
                              Text{"Cancel", "取消"},
                              Text{"&Cancel", "取消(&C)"},
                              Text{"Open", "開啟"},
                              Text{"&Open", "開啟(&O)"},
                              Text{"Save", "儲存"},
                              Text{"&Save", "儲存(&S)"},
                              Text{"Save As", "另存新檔"},
                              Text{"Close", "關閉"},
                              Text{"Look in:", "查詢："},
                              Text{"File &name:", "檔案名稱(&N)："},
                              Text{"Files of type:", "檔案類型："},
                              Text{"Name", "名稱"},
                              Text{"Size", "大小"},
                              Text{"Type", "類型"},
                              Text{"Date Modified", "修改日期"},
                              Text{"Folder", "資料夾"},
                              Text{"Computer", "電腦"}};

constexpr const char* translation_file = "qtbase_zh_TW";

}  // namespace

QString BoxLanguage::Boxes::translate(const char* /*context*/, const char* source,
                                      const char* /*disambiguation*/, int /*n*/) const {
  for (const Text& text : texts)
    if (text.english == std::string_view(source)) return to_qt(text.chinese);
  return {};
}

// The translator installed last is asked first.
void BoxLanguage::follow(Language language) {
  if (language == language_) return;
  language_ = language;
  if (language == Language::english) {
    QCoreApplication::removeTranslator(&qt_);
    QCoreApplication::removeTranslator(&boxes_);
    return;
  }
  QCoreApplication::installTranslator(&boxes_);
  const QString file = QLatin1String(translation_file);
  const QString beside_program = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
  if (qt_.load(file, QLibraryInfo::path(QLibraryInfo::TranslationsPath)) || qt_.load(file, beside_program))
    QCoreApplication::installTranslator(&qt_);
}

}  // namespace halden
