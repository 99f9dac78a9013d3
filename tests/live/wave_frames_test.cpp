// Frames of the harmonics and waveform views, built byte for byte and then spoiled.
#include <gtest/gtest.h>

#include <charconv>
#include <optional>
#include <string>
#include <vector>

#include "live/spectrum/spectrum_frame.h"
#include "live/waveform/waveform_frame.h"
#include "simulator/replies.h"

namespace halden {
namespace {

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  EXPECT_NE(text.find(from), std::string::npos) << from;
  return text.replace(text.find(from), from.size(), to);
}

std::string without(std::string text, std::size_t position) { return text.erase(position, 1); }

// The number that a text spells without one of its characters, or as it is.
std::optional<int> spelled(std::string text, std::size_t dropped = std::string::npos) {
  if (dropped != std::string::npos) text.erase(dropped, 1);
  text.erase(0, text.find_first_not_of(' '));
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::vector<double> numbers_of(const WaveFields& fields) {
  const auto& [channel, rms, plus, minus, frequency, thd, fundamental] = fields;
  return {double(channel), rms, plus, minus, double(frequency), thd, fundamental};
}

// A harmonics frame and where its 200 components stand in it.
struct SpectrumText {
  struct Component {
    std::size_t begin = 0;
    std::string text;
  };
  std::string bytes = "BO=    1R=  9000P= 12700N= 12699H=     2";
  std::vector<Component> components;

  explicit SpectrumText(std::string (*component)(int k, int which)) {
    for (int k = 0; k < 100; ++k) {
      bytes += std::string{' ', static_cast<char>('0' + k / 10), static_cast<char>('0' + k % 10)};
      for (const int which : {0, 1}) {
        bytes += ' ';
        components.push_back({bytes.size(), component(k, which)});
        bytes += components.back().text;
      }
    }
    bytes += "T=    32V=  8990E";
  }
};

std::string padded(int k, int which) {
  return which == 0 ? "00093" + std::to_string(10 + k % 90) : "-000042";
}

// The first component of each order is spelled like its own tag, the second one like the tag of the next.
std::string like_tags(int k, int which) {
  const std::string digits = std::to_string((k + which) % 100);
  return digits.size() == 1 ? "0" + digits : digits;
}

std::optional<SpectrumFrame> newest(std::string_view received) {
  const FramePlace place = newest_spectrum_frame(received);
  if (place.end == 0) return std::nullopt;
  return read_spectrum_frame(received.substr(place.begin, place.end - place.begin));
}

bool whole(const std::optional<SpectrumFrame>& frame) { return frame && frame->fault == SpectrumFault::none; }

TEST(SpectrumFrame, IsReadFieldByField) {
  for (const auto& component : {padded, like_tags}) {
    const SpectrumText text(component);
    const SpectrumFrame frame = read_spectrum_frame(text.bytes);
    EXPECT_EQ(frame.fault, SpectrumFault::none);
    EXPECT_EQ(numbers_of(frame.fields), (std::vector<double>{1, 9000, 12700, 12699, 2, 32, 8990}));
    for (std::size_t k = 0; k < 100; ++k) {
      EXPECT_EQ(frame.components.cos[k], spelled(text.components[2 * k].text)) << k;
      EXPECT_EQ(frame.components.sin[k], spelled(text.components[2 * k + 1].text)) << k;
    }
  }
}

TEST(SpectrumFrame, EveryFaultHasItsKind) {
  const std::string text = SpectrumText(padded).bytes, far = std::string(21, ' ') + " 07";
  using Changes = std::vector<std::pair<std::string, std::string>>;
  const std::pair<SpectrumFault, Changes> rows[] = {
      {SpectrumFault::none,
       {{"H=     2", "H=    -7"}, {"01 0009311", "01 32767"}, {"01 0009311", "01   -32768"}, {" 07", far}}},
      {SpectrumFault::no_channel, {{"O=", "Q="}}},
      {SpectrumFault::order_out_of_place,
       {{" 07", " " + far}, {" 50 ", " 5O "}, {" 99 ", " "}, {" 01 0009311", " 01"}}},
      {SpectrumFault::damaged,
       {{"O=    1", "O=    x"},
        {"R=  9000", "R=  9OOO"},
        {"P= 12700", "P= 12 00"},
        {"N= 12699", "N=      "},
        {"H=     2", "H=   2.0"},
        {"T=    32", "T=   --2"},
        {"V=  8990", "V=   89E"},
        {" 00 ", " "},
        {"01 0009311", "01 32768"},
        {"01 0009311", "01 -32769"},
        {"01 0009311", "01 93x1"},
        {"01 0009311", "01 99999999999999999999"}}}};
  for (const auto& [fault, changes] : rows)
    for (const auto& [from, to] : changes)
      EXPECT_EQ(read_spectrum_frame(replaced(text, from, to)).fault, fault) << to;
  for (const char tag : std::string_view("RPNHTV"))
    EXPECT_EQ(read_spectrum_frame(replaced(text, std::string{tag, '='}, "Q=")).fault, SpectrumFault::damaged)
        << tag;
}

TEST(SpectrumFrame, TheNewestOneThatHasEndedCounts) {
  const std::string old = SpectrumText(padded).bytes, text = replaced(old, "R=  9000", "R=  4711");
  for (const std::string& received : {"x\xff" + text, old + text, old.substr(0, 900) + text,
                                      old.substr(900) + text, text + old.substr(0, 900), text + "EE"}) {
    const auto frame = newest(received);
    ASSERT_TRUE(whole(frame)) << received.size();
    EXPECT_EQ(frame->fields.rms, 4711);
  }
  for (const std::string& received : {std::string(), std::string("E"), std::string("B"), text.substr(1)})
    EXPECT_FALSE(newest(received)) << received.size();
  // A field of a second frame, whose "B" is lost, once completed the one before.
  EXPECT_FALSE(whole(newest(replaced(old, "V=", "") + text.substr(1))));
}

// Components are as long as they are, so one that lost a digit or its sign spells another number, which is
// then shown. A lost byte anywhere else must be noticed.
TEST(SpectrumFrame, CutAnywhereOrWithOneByteLostShowsOnlyWhatIsSpelled) {
  for (const auto& component : {padded, like_tags}) {
    const SpectrumText text(component);
    const SpectrumFrame intact = read_spectrum_frame(text.bytes);
    auto next = text.components.begin();  // the first one that ends behind n
    for (std::size_t n = 0; n < text.bytes.size(); ++n) {
      EXPECT_FALSE(whole(newest(text.bytes.substr(0, n)))) << n;
      if (next != text.components.end() && n == next->begin + next->text.size()) ++next;
      const bool inside = next != text.components.end() && n >= next->begin;
      const auto number = inside ? spelled(next->text, n - next->begin) : std::nullopt;
      const auto frame = newest(without(text.bytes, n));
      ASSERT_EQ(whole(frame), number.has_value()) << n;
      if (!number) continue;
      HarmonicComponents expected = intact.components;
      const auto index = static_cast<std::size_t>(next - text.components.begin());
      (index % 2 == 0 ? expected.cos : expected.sin)[index / 2] = static_cast<std::int16_t>(*number);
      EXPECT_EQ(frame->components.cos, expected.cos) << n;
      EXPECT_EQ(frame->components.sin, expected.sin) << n;
    }
  }
}

const std::vector<std::string> wave_fields = {"    3", " 2301", " 3254", " 3199", "    1", "   32", " 2300"};

// 1024 samples: "BE" and "O=" also across two of them, and the limits of 16 bits.
std::string wave_text(const std::string& blank) {
  std::string bytes = "B ";
  for (int i = 0; i < 128; ++i) bytes += std::string("\xff\xff\x7f\xff\x80\0BEEB\x01O=R\0\x05", 16);
  for (std::size_t k = 0; k < wave_fields.size(); ++k)
    bytes += blank + waveform_tags[k] + "=" + wave_fields[k];
  return bytes + blank + "E";
}

bool whole(const WaveformFrame& frame) { return !frame.fault.damaged; }

TEST(WaveformFrame, IsReadSampleBySampleAndFieldByField) {
  // 0xFFFF, 0x7FFF, 0x8000, 0x4245, 0x4542, 0x014F, 0x3D52, 0x0005
  const std::int16_t values[] = {-1, 32767, -32768, 16965, 17730, 335, 15698, 5};
  for (const char* blank : {"", " "}) {
    const std::string text = wave_text(blank);
    EXPECT_TRUE(holds_waveform(text));
    const WaveformFrame frame = read_waveform_frame(text + "B E");
    ASSERT_TRUE(whole(frame));
    EXPECT_EQ(frame.end, *blank ? 2108U : 2100U);
    for (std::size_t i = 0; i < waveform_samples; ++i) ASSERT_EQ(frame.samples[i], values[i % 8]) << i;
    for (std::size_t k = 0; k < wave_fields.size(); ++k) EXPECT_EQ(frame.characters[k], wave_fields[k]);
    EXPECT_EQ(numbers_of(frame.fields), (std::vector<double>{3, 2301, 3254, 3199, 1, 32, 2300}));
  }
}

TEST(WaveformFrame, EveryFaultHasItsKind) {
  for (const std::string blank : {"", " "}) {
    const std::string text = wave_text(blank), samples = text.substr(0, 2050), fields = text.substr(2050);
    for (const char tag : waveform_tags) {
      const std::string spoiled = samples + replaced(fields, std::string{tag, '='}, "  ");
      // The field of the frame behind it once stood in for a missing one.
      for (const std::string& received : {spoiled, spoiled + text, spoiled + text.substr(2050)}) {
        const WaveformFault fault = read_waveform_frame(received).fault;
        EXPECT_TRUE(fault.damaged && fault.missing_tag == tag && !fault.cut) << tag << received.size();
      }
    }
    for (const auto& [from, to] :
         {std::pair("R= 2301", "R= 23O1"), {"H=    1", "H=     "}, {"V= 2300", "V=2 300"}}) {
      const WaveformFault fault = read_waveform_frame(samples + replaced(fields, from, to)).fault;
      EXPECT_TRUE(fault.damaged && fault.missing_tag == 0) << to;
    }
    // Up to ten separators may stand before the channel, nothing else and no more.
    EXPECT_TRUE(whole(read_waveform_frame(samples + std::string(10 - blank.size(), '\0') + fields)));
    EXPECT_FALSE(whole(read_waveform_frame(samples + std::string(11 - blank.size(), '\0') + fields)));
    EXPECT_FALSE(whole(read_waveform_frame(samples + "xx" + fields)));
    // Nothing is lost where the first blank stands at the end instead.
    EXPECT_TRUE(whole(read_waveform_frame(
        samples + fields.substr(blank.size(), fields.size() - blank.size() - 1) + blank + "E")));
  }
}

// As above, a field that lost a digit spells another number: only where a blank behind it fills its place.
TEST(WaveformFrame, CutAnywhereOrWithOneByteLostShowsOnlyWhatIsSpelled) {
  for (const std::string blank : {"", " "}) {
    const std::string text = wave_text(blank);
    for (std::size_t n = 0; n < text.size(); ++n) {
      const WaveformFrame cut = read_waveform_frame(text.substr(0, n));
      EXPECT_TRUE(cut.fault.cut || cut.fault.missing_tag != 0) << n;
      EXPECT_FALSE(holds_waveform(text.substr(0, n))) << n;
    }
    for (std::size_t n = 1; n < 2050; ++n) EXPECT_FALSE(whole(read_waveform_frame(without(text, n)))) << n;
    const std::size_t field_pitch = blank.size() + 7;
    for (std::size_t n = 2050; n < text.size(); ++n) {
      const WaveformFrame frame = read_waveform_frame(without(text, n));
      if (!whole(frame)) continue;
      ASSERT_FALSE(blank.empty()) << n;
      EXPECT_EQ(frame.samples, read_waveform_frame(text).samples) << n;
      for (std::size_t k = 0; k < wave_fields.size(); ++k) {
        const std::size_t begin = 2050 + k * field_pitch + 3;
        const bool hit = n >= begin && n < begin + 5;
        EXPECT_EQ(spelled(frame.characters[k].substr(0, hit ? 4 : 5)),
                  spelled(wave_fields[k], hit ? n - begin : std::string::npos))
            << n;
      }
    }
  }
}

TEST(WaveFrames, OfTheSimulatedMeterAreWholeOnEveryInput) {
  simulator::MeterSettings settings;
  for (settings.channel = 0; settings.channel < 6; ++settings.channel) {
    const std::string text = simulator::harmonics_frame({}, settings, 7.0);
    const SpectrumFrame spectrum = read_spectrum_frame(text);
    const WaveformFrame wave = read_waveform_frame(simulator::waveform_frame({}, settings, 7.0));
    ASSERT_TRUE(whole(spectrum) && whole(wave)) << settings.channel;
    EXPECT_EQ(spectrum.components.sin[1], std::stoi(text.substr(71, 7)));
    EXPECT_EQ(spectrum.fields.channel, settings.channel);
    EXPECT_EQ(numbers_of(spectrum.fields), numbers_of(wave.fields));
  }
}

}  // namespace
}  // namespace halden
