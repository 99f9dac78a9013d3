// The panel of the simulated meter in the demo: the settings a user makes on the meter itself.
#pragma once

#include <QWidget>
#include <functional>
#include <string_view>

class QGridLayout;

namespace halden {

namespace simulator {
class Meter;
class SimulatedPort;
}  // namespace simulator

class DemoPanel : public QWidget {
  Q_OBJECT

 public:
  // Both outlive the panel, which acts on them directly. Closing the panel only hides it.
  DemoPanel(simulator::Meter& meter, simulator::SimulatedPort& port, QWidget* main_window);

  // Before either is shown. Where the screen has no room for both, the main window becomes narrower.
  void place_beside(QWidget& main_window);

 private:
  struct Choice {
    std::string_view name;
    int value;
  };
  template <typename Choices>
  void add_choices(const char* title, const Choices& choices, int chosen, std::function<void(int)> choose);
  void add_heading(const char* title);
  void add_transient(simulator::SimulatedPort& port);
  void add_cable(simulator::SimulatedPort& port);

  QGridLayout* grid_;
};

}  // namespace halden
