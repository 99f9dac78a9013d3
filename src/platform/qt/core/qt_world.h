// What the Qt side of the platform shares: which handlers run, whether a wait that takes no input is running,
// whether the program is ending, and the mirrors that bring the windows up to date with the values of the
// logic.
#pragma once

#include <QObject>
#include <deque>
#include <functional>

namespace halden {

class QtWorld : public QObject {
  Q_OBJECT

 public:
  QtWorld();

  // Runs one handler of the logic; every Qt slot calls logic through here. Refreshes the mirrors afterwards,
  // and leaves the event loop when the program ends and no handler runs any more. Returns false when the
  // handler was cut short or, because the program has ended, was not run at all.
  bool run(const std::function<void()>& handler);

  // The same for a handler that the user starts. During a wait that takes no input it is kept, and runs in a
  // handler of its own when that wait is over.
  void run_input(std::function<void()> handler);

  // Called after every handler and on every turn of a wait; a mirror skips what it has already shown.
  void add_mirror(std::function<void()> mirror);
  void refresh();

  // Ends the program: calls what on_end registered, in that order, then every running wait ends with
  // ProgramEnded. The event loop is left as soon as no handler runs. Later calls do nothing.
  void end_program();
  void on_end(std::function<void()> callback);
  bool ending() const { return ending_; }

  // Whether a turn of a wait that does not yield is running: input and timer ticks must not reach the logic.
  bool holding() const { return holds_ > 0; }

  // Marks one turn of a wait that does not yield. May be nested.
  class Hold {
   public:
    explicit Hold(QtWorld& world);
    ~Hold();
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    QtWorld& world_;
  };

  // Ends the wait without input that is running, so that ticks and inputs held back are delivered. Called at
  // a yielding turn, before a box is shown, and at the end of a handler. Does nothing inside a Hold.
  void end_wait();

 Q_SIGNALS:
  // A wait without input has lasted so long that it should be shown to the user.
  void long_wait_began();

  // Follows every wait without input, long or short.
  void wait_over();

  // After the callbacks of on_end.
  void ended();

 private:
  void begin_turn();
  void run_kept_inputs();
  void leave_event_loop();

  // Deques, because a running element may add another: that does not move the elements of a deque.
  std::deque<std::function<void()>> mirrors_;
  std::deque<std::function<void()>> end_callbacks_;
  std::deque<std::function<void()>> kept_inputs_;
  int running_handlers_ = 0;
  int holds_ = 0;
  bool waiting_ = false;
  bool wait_shown_ = false;
  double wait_began_s_ = 0;
  bool refreshing_ = false;
  bool refresh_again_ = false;
  bool ending_ = false;
};

}  // namespace halden
