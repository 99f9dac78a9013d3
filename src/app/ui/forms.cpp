#include "app/ui/forms.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/ui/meter_rec.h"
#include "filetools/export/ui/export_form_design.h"
#include "filetools/hardcopy/ui/hardcopy_form_design.h"
#include "filetools/playback/ui/playback_form_design.h"
#include "filetools/power_plot/ui/plot_form_design.h"
#include "filetools/printing/ui/print_form_design.h"
#include "filetools/viewer/ui/viewer_form_design.h"
#include "live/phasors/ui/phasor_form.h"
#include "logger/ui/logger_form_design.h"

namespace halden {

namespace {

struct Form {
  const char* window;
  FormDesign (*design)(const Windows& windows);
};

constexpr std::array forms = {
    Form{"MeterRec", [](const Windows&) { return meter_rec_design(); }},
    Form{"PhasorForm", [](const Windows&) { return phasor_form_design(); }},
    Form{"PlotFile", [](const Windows&) { return plot_form_design(); }},
    Form{"P_Harmo", [](const Windows&) { return playback_form_design(); }},
    Form{"HC_window", [](const Windows&) { return hardcopy_form_design(); }},
    Form{"VIEW", [](const Windows&) { return viewer_form_design(); }},
    Form{"PrintFile", [](const Windows&) { return print_form_design(); }},
    Form{"ExportNumbers", [](const Windows&) { return export_form_design(); }},
    Form{"Logger", [](const Windows& windows) { return logger_form_design(windows["CHKSPEED"]); }}};

FormWindow& form_of(std::string_view window, const std::vector<std::unique_ptr<FormWindow>>& made) {
  return **std::find_if(made.begin(), made.end(),
                        [window](const auto& form) { return form->window().name() == window; });
}

}  // namespace

std::vector<std::unique_ptr<FormWindow>> make_forms(const Windows& windows, UserInput& input, Look look) {
  std::vector<std::unique_ptr<FormWindow>> made;
  for (const Form& form : forms)
    made.push_back(std::make_unique<FormWindow>(windows[form.window], input, form.design(windows), look));
  form_of("PrintFile", made).stand_before(form_of("VIEW", made));
  return made;
}

}  // namespace halden
