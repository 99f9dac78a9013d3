// What the programs make of their command lines, without a meter.
#include <algorithm>
#include <filesystem>
#include <vector>

#include "program.h"

namespace halden {
namespace {

const std::string no_display = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ";

TEST(CommandLine, HelpAndVersionNeedNoDisplayAndMistakesAreToldOnTheErrorChannel) {
  const std::pair<int, std::vector<const char*>> rows[] = {
      {0,
       {"halden --help", "halden --version", "haldenctl --help", "haldenctl --version",
        "haldenctl live --version", "haldenctl logger list --version", "haldenctl set -h",
        "halden-meter --help", "halden-meter --version"}},
      {2,
       {"haldenctl",
        "haldenctl measure",
        "haldenctl --port demo",
        "haldenctl live",
        "haldenctl live --port 17",
        "haldenctl live --port demo --count 0",
        "haldenctl live --port demo --format xml",
        "haldenctl status --port demo --count 1",
        "haldenctl set --port /dev/null",
        "haldenctl set --port /dev/null ct=1 kv=2",
        "haldenctl record --port demo --out a --option volts",
        "haldenctl record --port demo --out a --waveform --option angle",
        "haldenctl logger",
        "haldenctl logger clear --port demo",
        "haldenctl logger download-all --port demo --dir /not/there",
        "halden --com 17=/dev/null",
        "halden --nonsense",
        "halden --workdir /not/there",
        "halden --palette green",
        "halden --after soon",
        "halden-meter --wiring 4P5W",
        "halden-meter --fault loud",
        "haldenctl points a --column W_SYS"}},
      {1, {"halden --demo"}}};
  for (const auto& [exit_code, commands] : rows)
    for (const std::string command : commands) {
      const Ended ended = run(no_display + command);
      EXPECT_EQ(ended.exit_code, exit_code) << command;
      EXPECT_EQ(ended.output.empty(), exit_code != 0) << command;
      EXPECT_EQ(ended.errors.empty(), exit_code == 0) << command;
    }
  const std::pair<const char*, const char*> mistakes[] = {
      {"haldenctl measure", "The following argument was not expected: measure\n"},
      {"haldenctl live --prot demo", "The following argument was not expected: --prot\n"},
      {"haldenctl", "A subcommand is required\n"},
      {"sh -c \"exec haldenctl status --port ''\"",
       "--port: expected 1 to 16, the path of a device, or demo, not \"\"\n"},
      {"haldenctl logger clear --port demo",
       "clear: all files in the meter would be erased; give --yes to do that\n"},
      {"sh -c \"exec haldenctl record --port demo --out ''\"",
       "--out: expected the name of a file, not \"\"\n"},
      {"haldenctl plot a --out a.gif",
       "--out: expected a file that ends in .png, .svg or .pdf, not \"a.gif\"\n"},
      {"haldenctl spectrum a --out a.png --record 0",
       "--record: expected a record number from 1 on, not \"0\"\n"},
      {"haldenctl waveform a --out a.png --clamp 1.3", "--clamp: expected 1.0, 1.2 or 3.0, not \"1.3\"\n"}};
  for (const auto& [command, sentence] : mistakes)
    EXPECT_TRUE(run(command).errors.starts_with(sentence)) << run(command).errors;
  for (const std::string printed : {"halden --help", "haldenctl --help", "halden-meter --version"}) {
    const Ended full = run("sh -c \"exec " + printed + " > /dev/full\"");
    EXPECT_EQ(full.exit_code, 1) << printed;
    EXPECT_EQ(full.errors, "The results could not be written.\n") << printed;
  }
  const std::string errors = run(no_display + "halden --demo").errors;
  const Ended dead = run("env -u WAYLAND_DISPLAY DISPLAY=:9999 QT_QPA_PLATFORM=xcb halden --demo");
  EXPECT_EQ(dead.exit_code, 1);
  EXPECT_EQ(
      dead.errors,
      "No window can be shown: could not connect to display :9999; \"haldenctl live\" shows the readings in "
      "a terminal.\n");
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
  EXPECT_NE(errors.find("haldenctl live"), std::string::npos) << errors;
}

// The configuration of the program with windows has no say here, neither its port nor its language; the demo
// needs nothing at all, and nothing is kept.
TEST(CommandLine, PortsThatDoNotOpenAndTheDemoLeaveTheFolderAlone) {
  TempFolder folder;
  folder.write("commport.dat", "9\r\n");
  folder.write("language.pha", "1\r\n");
  folder.write("a file", "text");
  const std::string there = no_display + "-C " + (folder / "") + " haldenctl ";
  const std::pair<std::string, std::string> rows[] = {
      {"./nothing", "./nothing is not there. Is the adapter plugged in?\n"},
      {"./a file", "./a file is not a serial port.\n"},
      {folder / "", (folder / "") + " is not a serial port.\n"},
      {"/dev/null", "/dev/null is not a serial port.\n"}};
  for (const char* command : {"status", "live"})
    for (const auto& [port, sentence] : rows) {
      const Ended ended = run(there + command + " --port \"" + port + "\"");
      EXPECT_EQ(ended.exit_code, 1) << port;
      EXPECT_EQ(ended.output, "") << port;
      EXPECT_EQ(ended.errors, sentence);
    }
  const Ended demo = run(there + "status --port demo --format json");
  EXPECT_EQ(demo.exit_code, 0);
  EXPECT_EQ(demo.errors, "");
  EXPECT_TRUE(demo.output.starts_with(R"({"meter_mode":1,"harmonic_channel":0,"wiring_system":3,)"));
  EXPECT_TRUE(demo.output.ends_with("\"logger_file_count\":7}\n")) << demo.output;
  EXPECT_EQ(folder.read("commport.dat") + folder.read("language.pha"), "9\r\n1\r\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / ""), {}), 3);
}

TEST(CommandLine, PointsOfAFileNeedNoMeter) {
  TempFolder folder;
  std::string record = "03-15-2024,  12:30:44,    230.1V,";
  for (int field = 3; field < 17; ++field) record += "    ------,";
  folder.write("a day.csv", ("1P2W,Hz=60\r\nnames\r\n" + record + "\r\n" + record).c_str());
  const std::string there = no_display + "-C " + (folder / "") + " haldenctl points ";
  EXPECT_EQ(run(there + "\"a day.csv\" --from 1 --to 2").output,
            "first_record,last_record,date,time,maximum,minimum,readings,unit\n"
            "1,1,03-15-2024,12:30:44,230.1,230.1,1,V\n2,2,03-15-2024,12:30:44,230.1,230.1,1,V\n");
  EXPECT_EQ(run(there + "none").errors, "File not found\n");
}

TEST(CommandLine, PicturesNeedNoDisplay) {
  TempFolder folder;
  std::string file = "1P2W,Hz=60\nnames\n";
  for (int record = 0; record < 3600; ++record) {
    file += "03-15-2024,  12:30:44,    230.1V,";
    for (int field = 3; field < 17; ++field) file += "    ------,";
    file += "\n";
  }
  folder.write("day.csv", file.c_str());
  const std::string plot =
      no_display + "-C " + (folder / "") + " QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=2 haldenctl plot day.csv ";
  const char* const no_statistics = "Records more than 3600, STATIStics function disabled\n";
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"--to 3599 --stats Mean --out a.PNG", "\x89PNG", no_statistics},
      {"--from 12:30 --out a.pdf", "%PDF-", ""},
      {"--stats mean-and-minmax --out a.svg", "<?xml", no_statistics}};
  for (const auto& [options, begins, told] : rows) {
    const Ended ended = run(plot + options);
    EXPECT_EQ(ended.exit_code, 0) << options;
    EXPECT_EQ(ended.output + ended.errors, told) << options;
    const std::string picture = std::string(options).substr(std::string(options).find("a."));
    EXPECT_TRUE(folder.read(picture.c_str()).starts_with(begins)) << options;
  }
  EXPECT_NE(folder.read("a.svg").find("day.csv · 1P2W · 3600 records"), std::string::npos);
  std::string spectrum = "HARMO,INPUT=V1,NO.=51 ,OPTION=%\nnames\n";
  for (int field = 0; field < 60; ++field) spectrum += field == 8 ? " 50 to 100," : "       1.5,";
  folder.write("h.csv", spectrum.c_str());
  const Ended drawn =
      run(no_display + "-C " + (folder / "") + " haldenctl spectrum h.csv --record 1 --out s.svg");
  EXPECT_EQ(drawn.exit_code, 0) << drawn.errors;
  EXPECT_NE(folder.read("s.svg").find("record 1 of 1"), std::string::npos);
  folder.write("screen.txt", "2009-05-12 15:30:00\n1\n2009-05-13 15:30:00\n2\n");
  const std::string hardcopy = no_display + "-C " + (folder / "") + " haldenctl hardcopy screen.txt ";
  EXPECT_EQ(run(hardcopy + "--picture 2 --out h.svg").errors,
            "Picture 2 of 2. 3839 of 3840 bytes are missing; they are left white.\n");
  EXPECT_NE(folder.read("h.svg").find("2009-05-13 15:30:00"), std::string::npos);
  const Ended no_picture = run(hardcopy + "--picture 3 --out h.png");
  EXPECT_EQ(no_picture.exit_code, 1);
  EXPECT_EQ(no_picture.errors, "The file has only 2 pictures.\n");
  folder.write("long.txt", (std::string(400, 'x') + "\n").c_str());
  const std::string print = no_display + "-C " + (folder / "") + " haldenctl print ";
  EXPECT_EQ(run(print + "long.txt --out p.pdf").errors, "1 page. Print sent to p.pdf.\n");
  EXPECT_TRUE(folder.read("p.pdf").starts_with("%PDF"));
  EXPECT_EQ(run(print + "none.txt --out p.pdf").errors, "File not found\n");
  EXPECT_TRUE(folder.read("p.pdf").starts_with("%PDF")) << "a file that is not there replaces nothing";
  const Ended no_folder = run(plot + "--out none/a.png");
  EXPECT_EQ(no_folder.exit_code, 1);
  EXPECT_EQ(no_folder.errors, "none/a.png: folder gone.\n");
}

}  // namespace
}  // namespace halden
