#include "cli/playback_command.h"

#include <gtest/gtest.h>

#include "formats/record_field.h"
#include "platform/virtual/virtual_files.h"

namespace halden {
namespace {

TEST(SpectrumCommand, DrawsOneRecordOrSaysWhyNot) {
  std::string record;
  for (const char* text :
       {"2024-03-15", "12:30:44", "1.000A", "1.414A", "-1.414A", "0.0%", "1.000A", "50.0Hz", "50 to 100"})
    record += record_field(text);
  for (int order = 50; order <= 100; ++order) record += record_field("2.5");
  VirtualFiles files;
  files.contents["d/h.csv"] = "HARMO,Hz=50,CT=40,VT=1,INPUT=I1,SYS=1P2W,NO.=51 ,OPTION=%\nnames\n" + record +
                              "\n03-15-2024,12:30:46, NO COM, DATA LOST\n";
  PlaybackCommand command{WaveFileKind::harmonics, "d/h.csv", 1, {}, {}};
  const PlaybackChart drawn = chart_of_record(files, command);
  ASSERT_TRUE(drawn.chart) << drawn.failure;
  EXPECT_EQ(drawn.chart->title, "h.csv · I1 · % · CT 40 · VT 1 · record 1 of 2 · 2024-03-15 12:30:44");
  EXPECT_EQ(readout_at(*drawn.chart, 0), "Order 50: 2.5 %, 2500.0 Hz");
  command.record = 2;
  EXPECT_EQ(chart_of_record(files, command).failure, "record 2: lost link");
  command.record = 3;
  EXPECT_EQ(chart_of_record(files, command).failure, "The file has 2 records.");
  command.kind = WaveFileKind::waveform;
  EXPECT_EQ(chart_of_record(files, command).failure, "Not a Harmonic Data File");
}

}  // namespace
}  // namespace halden
