// Shows the wait cursor while a longer wait takes no input, so that clicks made meanwhile do not seem lost.
#pragma once

#include <QObject>

namespace halden {

class QtWorld;

class WaitCursor : public QObject {
 public:
  explicit WaitCursor(QtWorld& world);
  ~WaitCursor() override;

 private:
  void show();
  void restore();

  bool shown_ = false;
};

}  // namespace halden
