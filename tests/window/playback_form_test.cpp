#include <QAction>
#include <QListWidget>
#include <QScrollBar>

#include "filetools/playback/playback_form.h"
#include "filetools/playback/ui/playback_form_design.h"
#include "form_fixture.h"

namespace halden {
namespace {

struct PlaybackFormTest : FormTest {
  PlaybackFormTest() : FormTest(make_playback_window(), playback_form_design()) {}
};

TEST_F(PlaybackFormTest, TheScrollBarStepsAndTheListFollows) {
  auto* const bar = static_cast<QScrollBar*>(widget(playback_scroll));
  EXPECT_TRUE(bar->isHidden()) << "there are no records yet";
  values.set_visible(playback_scroll, true);
  values.set_range(playback_scroll, 1, 10000);
  values.set_lines(playback_list, std::make_shared<const Lines>(Lines{"H0       0.0%", "H1     100.0%"}));
  form.show_changes();
  bar->triggerAction(QAbstractSlider::SliderToMaximum);
  EXPECT_EQ(values[playback_scroll].value, 10000);
  EXPECT_EQ(changes, std::vector<std::string>{"VScroll1"});
  auto* const list = static_cast<QListWidget*>(widget(playback_list));
  ASSERT_EQ(list->count(), 2);
  EXPECT_EQ(from_qt(list->item(1)->text()), "H1     100.0%");
  values.set_lines(playback_list, nullptr);
  values.set_visible(playback_list, false);
  form.show_changes();
  EXPECT_TRUE(list->count() == 0 && list->isHidden());
}

TEST_F(PlaybackFormTest, EverythingFitsAndHasAName) {
  const std::pair<const char*, const char*> texts[] = {
      {"DATE_value", "03-15-2024"}, {"TIME_value", "12:30:44"},   {"PEAK_N_value", "-325.4mA"},
      {"RMS_value", "230.1V"},      {"CF_wave_value", "1414.21"}, {"HZ_value", "AUTO"},
      {"Label1", "1000000"},        {"TOTAL_R_value", "1000000"}};
  for (const auto& [name, text] : texts) values.set_text(name, text);
  values.set_visible(playback_scroll, true);
  form.show_changes();
  for (const QSize size : {QSize(640, 440), QSize(1100, 720)}) {
    resize(size.width(), size.height());
    for (const auto& [name, text] : texts) expect_fits(widget(name), name);
    EXPECT_GE(widget(playback_chart_name)->height(), 140);
  }
  EXPECT_EQ(nameless_in_focus(form), "");
  EXPECT_EQ(spoken(form, widget("PEAK_N_value")), "PEAK-: ");
  for (const MenuEntry& entry : playback_menu_entries()) values.set_enabled(entry.name, true);
  form.show_changes();
  for (const char* entry : {"openfileforplot", "read_again", "exit_plot_harmonics", "set_har_51",
                            "set_har_100", "set_color", "set_BW"})
    action(entry)->trigger();
  EXPECT_EQ(clicks.size(), 7U);
}

}  // namespace
}  // namespace halden
