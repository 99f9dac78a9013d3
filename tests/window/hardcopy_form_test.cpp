#include <QAbstractButton>
#include <QAction>
#include <QDropEvent>
#include <QImage>
#include <QMimeData>
#include <QUrl>

#include "filetools/hardcopy/hardcopy_form.h"
#include "filetools/hardcopy/ui/hardcopy_form_design.h"
#include "filetools/hardcopy/ui/hardcopy_sheet.h"
#include "form_fixture.h"

namespace halden {
namespace {

struct HardcopyFormTest : FormTest {
  HardcopyFormTest() : FormTest(make_hardcopy_form(), hardcopy_form_design()) {}
};

// The sheet is 9000 x 5080 units, and a dot 35 of them: 900 pixels give it 3.
TEST_F(HardcopyFormTest, DotsAreBlackSquaresWhereTheyBelong) {
  Hardcopy picture{"", std::vector<std::uint8_t>(3840)};
  picture.bytes.front() = 5;  // the first dot and the third one
  picture.bytes.back() = 128;
  values.set_lines(hardcopy_picture, dot_lines(picture));
  form.show_changes();
  HardcopySheet* const sheet = form.findChild<HardcopySheet*>();
  sheet->resize(900, 600);
  EXPECT_EQ(sheet->dots_place(), QRectF(90, 108, 720, 384));
  const QImage drawn = sheet->grab().toImage();
  const auto black = [&drawn](int x, int y) { return drawn.pixelColor(x, y) == Qt::black; };
  for (const auto& [x, y] : {std::pair{90, 108}, {92, 110}, {96, 108}, {98, 110}, {807, 489}, {809, 491}})
    EXPECT_TRUE(black(x, y)) << x << "," << y;
  for (const auto& [x, y] : {std::pair{89, 108}, {90, 107}, {90, 111}, {93, 109}, {95, 109}, {810, 491}})
    EXPECT_EQ(drawn.pixelColor(x, y), Qt::white) << x << "," << y;
}

TEST_F(HardcopyFormTest, PassesOnTheFilesDroppedOnIt) {
  Lines dropped;
  values.on_drop([&dropped](const Lines& paths) { dropped = paths; });
  QMimeData data;
  data.setUrls({QUrl(QStringLiteral("file:///d/%E9%9B%BB%20a.txt")), QUrl(QStringLiteral("http://x/b.txt"))});
  QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&form, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&form, &drop);
  EXPECT_EQ(dropped, Lines{"/d/電 a.txt"});
}

TEST_F(HardcopyFormTest, SaysWhatItShowsAndTellsWhatTheUserDoes) {
  values.set_text(hardcopy_date, "2009-05-12 15:30:00");
  form.show_changes();
  EXPECT_EQ(spoken(form, widget(hardcopy_picture)), "Display of the meter: 2009-05-12 15:30:00");
  EXPECT_FALSE(action(next_entry)->isVisible()) << "of a file with one picture";
  for (const std::string_view button : {draw_button, print_button})
    static_cast<QAbstractButton*>(widget(button))->click();
  for (const std::string_view entry : {open_entry, printer_entry}) action(entry)->trigger();
  EXPECT_EQ(clicks, (std::vector<std::string>{"HC_command", "Print_HC_command", "open_file_and_plot",
                                              "MenuPrinter"}));
  EXPECT_EQ(nameless_in_focus(form), "");
}

}  // namespace
}  // namespace halden
