#include "logger/recorded_settings.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

// The live settings do not count. Of the flags, 8001, BFFF, C000, 4000 and 3FFF in hexadecimal, only the two
// top bits do.
TEST(RecordedSettings, ComeFromTheSelectedFile) {
  const struct {
    std::int16_t ct, pt, clamp_flags, seconds, frequency;
    float current_scale;
    const char* texts;
  } cases[] = {{0, 0, -32767, -5, 0, 3.0F, "Auto 30 0 1 1"},
               {200, 32767, -16385, 300, 1, 3.0F, "50 30 300 200 32767"},
               {1, 1, -16384, 0, 2, 1.2F, "60 30 0 1 1"},
               {1, 1, 16384, 2, 3, 1.0F, "Auto 30 2 1 1"},
               {1, 1, 16383, 2, 2, 1.0F, "60 30 2 1 1"}};
  MeterStatus status;
  status.ct_ratio = status.pt_ratio = status.sample_seconds = 7;
  status.current_scale = 5.0F;
  status.md_period = 30;
  status.logger_system = 2;
  status.logger_current_range = 3;
  for (const auto& c : cases) {
    status.logger_ct_ratio = c.ct;
    status.logger_pt_ratio = c.pt;
    status.logger_clamp_flags = c.clamp_flags;
    status.logger_sample_seconds = c.seconds;
    status.logger_frequency_code = c.frequency;
    const RecordedSettings recorded = recorded_settings_of(status, "2024-03-15", "12:30:44");
    const RecordedTexts texts = recorded_texts(recorded);
    EXPECT_EQ(texts.hz + ' ' + texts.md + ' ' + texts.sec + ' ' + texts.ct + ' ' + texts.vt, c.texts);
    EXPECT_EQ(recorded.scaling.current_scale, c.current_scale);
    EXPECT_EQ(recorded.scaling.current_range, 3);
    EXPECT_EQ(recorded.scaling.wiring_system, Wiring::w3p3w);
  }
}

}  // namespace
}  // namespace halden
