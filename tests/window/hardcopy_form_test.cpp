// The hardcopy window on the screen.

#include <QAbstractButton>
#include <QAction>
#include <QImage>

#include "filetools/hardcopy/hardcopy_form.h"
#include "filetools/hardcopy/ui/hardcopy_form_design.h"
#include "filetools/hardcopy/ui/hardcopy_sheet.h"
#include "form_fixture.h"

namespace halden {
namespace {

struct HardcopyFormTest : FormTest {
  HardcopyFormTest() : FormTest(make_hardcopy_form(), hardcopy_form_design()) {}

  // The upper left dot, the one two places right of it, and the lower right one.
  void show_three_dots() {
    Hardcopy picture{"2009-05-12 15:30:00", std::vector<std::uint8_t>(3840)};
    picture.bytes.front() = 5;
    picture.bytes.back() = 128;
    values.set_lines(hardcopy_picture, dot_lines(picture));
    values.set_text(hardcopy_date, picture.date_line);
    form.show_changes();
  }
};

// The sheet is 9000 x 5080 units, and a dot 35 of them: 900 pixels give it 3.
TEST_F(HardcopyFormTest, DotsAreBlackSquaresWhereTheyBelong) {
  show_three_dots();
  HardcopySheet* const sheet = form.findChild<HardcopySheet*>();
  sheet->resize(900, 600);
  EXPECT_EQ(sheet->dots_place(), QRectF(90, 108, 720, 384));
  const QImage drawn = sheet->grab().toImage();
  const auto colours = [&](int y, std::initializer_list<int> columns) {
    std::string colour;
    for (const int x : columns)
      colour += drawn.pixelColor(x, y) == Qt::black ? '#' : drawn.pixelColor(x, y) == Qt::white ? '.' : '?';
    return colour;
  };
  EXPECT_EQ(colours(107, {90, 96}), "..");
  for (const int y : {108, 110}) EXPECT_EQ(colours(y, {89, 90, 92, 93, 95, 96, 98, 99}), ".##..##.") << y;
  EXPECT_EQ(colours(111, {90, 96}), "..");
  EXPECT_EQ(colours(491, {806, 807, 809, 810}), ".##.");
}

TEST_F(HardcopyFormTest, SaysWhatItShowsAndTellsWhatTheUserDoes) {
  show_three_dots();
  EXPECT_EQ(spoken(form, widget(hardcopy_picture)), "Display of the meter: 2009-05-12 15:30:00");
  EXPECT_FALSE(action(next_entry)->isVisible()) << "of a file with one picture";
  for (const std::string_view button : {draw_button, print_button})
    static_cast<QAbstractButton*>(widget(button))->click();
  values.set_visible(next_entry, true);
  form.show_changes();
  for (const std::string_view entry : {open_entry, printer_entry, next_entry}) action(entry)->trigger();
  EXPECT_EQ(clicks, (std::vector<std::string>{"HC_command", "Print_HC_command", "open_file_and_plot",
                                              "MenuPrinter", "next_picture"}));
  EXPECT_EQ(nameless_in_focus(form), "");
  resize(640, 440);
  for (const std::string_view name : {draw_button, print_button, hardcopy_date})
    expect_fits(widget(name), std::string(name));
}

}  // namespace
}  // namespace halden
