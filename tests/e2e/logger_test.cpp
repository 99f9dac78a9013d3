// The files of the meter's memory, fetched by haldenctl over a pseudo-terminal.
#include <filesystem>

#include "program.h"

namespace halden {
namespace {

// Minutes, nearly all of them the waits between the commands to the meter.
TEST(Logger, AKilledRunLeavesItsFirstFileWholeAndTheNextRunFetchesTheOthers) {
  constexpr unsigned limit_s = 330;
  SimulatedMeter meter("--memory small", limit_s);
  TempFolder folder, temporary;
  const std::string command = "env -C " + (folder / "") + " TMPDIR=" + (temporary / "") +
                              " haldenctl logger download-all --port " + meter.port +
                              " --dir . --format json";
  std::string first;
  {
    Program killed(command, limit_s);
    for (int tries = 0; tries < 4 && first.empty(); ++tries)
      wait_until([&] { return !(first = folder.read("20260305081500P.csv")).empty(); });
    killed.send_signal(SIGKILL);
    EXPECT_EQ(killed.end().exit_code, -SIGKILL);
  }
  const Ended ended = Program(command, limit_s).end();
  EXPECT_EQ(ended.exit_code, 0);
  EXPECT_EQ(ended.errors, "");
  for (const std::string file : {R"("./20260305081500P.csv","kind":"Power","state":"was there already")",
                                 R"("./20260305081501H.csv","kind":"Harmonics","state":"downloaded")",
                                 R"("./20260305081502C.txt","kind":"Hardcopy","state":"downloaded")"})
    EXPECT_NE(ended.output.find(file), std::string::npos) << ended.output;
  std::size_t transfers = 0;
  const std::string log = meter.program.answer("log");
  for (std::size_t at = 0; (at = log.find("\\x04", at)) != std::string::npos; ++at) ++transfers;
  EXPECT_EQ(transfers, 3u) << log;
  EXPECT_EQ(folder.read("20260305081500P.csv"), first);
  const std::string recorded = ",Hz=50,MD=15,SEC=2,CT=1,VT=1,INPUT=V1";
  EXPECT_TRUE(folder.read("20260305081500P.csv").starts_with("1P2W" + recorded + "\r\n"));
  EXPECT_TRUE(folder.read("20260305081501H.csv").starts_with("HARMO" + recorded + ",SYS=1P2W"));
  EXPECT_TRUE(folder.read("20260305081502C.txt").starts_with("2026-03-05 08:15:00\r\n0"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / ""), {}), 3) << "nothing else is left";
}

}  // namespace
}  // namespace halden
