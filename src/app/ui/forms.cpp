#include "app/ui/forms.h"

#include <array>

#include "app/ui/meter_rec.h"
#include "live/phasors/ui/phasor_form.h"

namespace halden {

namespace {

struct Form {
  const char* window;
  FormDesign (*design)();
};

constexpr std::array forms = {Form{"MeterRec", meter_rec_design},  //
                              Form{"PhasorForm", phasor_form_design}};

}  // namespace

std::vector<std::unique_ptr<FormWindow>> make_forms(const Windows& windows, UserInput& input, Look look) {
  std::vector<std::unique_ptr<FormWindow>> made;
  for (const Form& form : forms)
    made.push_back(std::make_unique<FormWindow>(windows[form.window], input, form.design(), look));
  return made;
}

}  // namespace halden
