#include "filetools/export/export_form.h"

#include <QPushButton>

#include "filetools/export/ui/export_form_design.h"
#include "form_fixture.h"

namespace halden {
namespace {

struct ExportFormTest : FormTest {
  ExportFormTest() : FormTest(make_export_form(), export_form_design()) {}
};

TEST_F(ExportFormTest, EveryChoiceFitsAndIsNamedInBothLanguages) {
  for (const Language language : {Language::english, Language::chinese}) {
    values.apply_captions(language);
    resize(520, 340);
    for (const QPushButton* const button : form.findChildren<QPushButton*>())
      expect_fits(button, from_qt(button->objectName()));
    EXPECT_EQ(nameless_in_focus(form), "");
  }
  EXPECT_EQ(spoken(form, widget("dates_dmy")).substr(0, 12), "日期順序");
  static_cast<QAbstractButton*>(widget("dates_dmy"))->click();
  EXPECT_EQ(clicks, std::vector<std::string>{"dates_dmy"});
  EXPECT_FALSE(static_cast<QAbstractButton*>(widget("dates_dmy"))->isChecked()) << "the values decide";
}

}  // namespace
}  // namespace halden
