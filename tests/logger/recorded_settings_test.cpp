#include "logger/recorded_settings.h"

#include <gtest/gtest.h>

namespace halden {
namespace {

TEST(RecordedSettings, ComeFromTheSelectedFileNotFromTheLiveSettings) {
  MeterStatus status;
  status.ct_ratio = status.pt_ratio = 7;
  status.current_scale = 5.0F;
  status.current_range = 1;
  status.frequency_code = 1;
  status.sample_seconds = 9;
  status.md_period = 30;
  status.logger_ct_ratio = 200;
  status.logger_pt_ratio = 32767;
  status.logger_current_range = 3;
  status.logger_system = 2;
  status.logger_frequency_code = 2;
  status.logger_channel = 5;
  status.logger_sample_seconds = 300;
  const RecordedSettings recorded = recorded_settings_of(status, "2024-03-15", "12:30:44");
  EXPECT_EQ(recorded.scaling.current_scale, 1.0F);
  EXPECT_EQ(recorded.scaling.current_range, 3);
  EXPECT_EQ(recorded.scaling.wiring_system, Wiring::w3p3w);
  EXPECT_EQ(recorded.scaling.product_limit, ProductLimit::none);
  EXPECT_EQ(recorded.channel, 5);
  EXPECT_EQ(recorded.start_date + recorded.start_time, "2024-03-1512:30:44");
  const RecordedTexts texts = recorded_texts(recorded);
  EXPECT_EQ(texts.hz + ' ' + texts.md + ' ' + texts.sec + ' ' + texts.ct + ' ' + texts.vt,
            "60 30 300 200 32767");
}

TEST(RecordedSettings, WhatWasNeverSetOrIsCorruptCountsAsTheSmallestThatWorks) {
  MeterStatus status;
  status.logger_sample_seconds = -5;
  const RecordedTexts texts = recorded_texts(recorded_settings_of(status, "", ""));
  EXPECT_EQ(texts.hz + ' ' + texts.sec + ' ' + texts.ct + ' ' + texts.vt, "Auto 0 1 1");
  // 8001, BFFF; C000; 4000, 3FFF in hexadecimal: only the two top bits count.
  for (const auto& [flags, factor] :
       {std::pair(-32767, 3.0F), {-16385, 3.0F}, {-16384, 1.2F}, {16384, 1.0F}, {16383, 1.0F}}) {
    status.logger_clamp_flags = static_cast<std::int16_t>(flags);
    EXPECT_EQ(recorded_settings_of(status, "", "").scaling.current_scale, factor) << flags;
  }
}

}  // namespace
}  // namespace halden
