// How often a sampling instant comes: asks the user for the sampling time.
#pragma once

#include "live/sample_clock.h"
#include "platform/dialogs.h"
#include "screen/window.h"

namespace halden {

// "Sample Rate": whole seconds from 2 to 32767; what lies outside is brought to the nearest of the two, and a
// fraction is cut off. An empty answer changes nothing. The next whole second is a sampling instant.
void ask_sampling_time(Dialogs& dialogs, SampleClock& sample_clock, Window& meter_rec);

// The same without a question; `time_s` from 2 to 32767.
void set_sampling_time(std::int16_t time_s, SampleClock& sample_clock, Window& meter_rec);

}  // namespace halden
