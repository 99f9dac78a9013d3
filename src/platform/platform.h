// What the outside world offers, handed to the program in one piece. The owner outlives everything built from
// it.
#pragma once

namespace halden {

class Clock;
class Timer;
class SerialPort;
class Dialogs;
class Printer;
class Pictures;
class Shell;
class Files;

struct Platform {
  Clock& clock;
  Timer& timer1;  // the sample clock
  Timer& timer2;  // the live poll
  SerialPort& port;
  Dialogs& dialogs;
  Printer& printer;
  Pictures& pictures;
  Shell& shell;
  Files& files;
};

}  // namespace halden
