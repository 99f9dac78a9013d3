// The entries of P_Harmo that hand the shown record on to other programs.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "filetools/playback/played_record.h"
#include "platform/platform.h"
#include "screen/output/picture_output.h"

namespace halden {

class PlaybackExport {
 public:
  // All outlive this. `record` is the one shown, `path` its file.
  PlaybackExport(const Platform& platform, const Language& language, Window& window,
                 const PlayedRecord& record, const std::shared_ptr<const PlaybackFile>& file);
  PlaybackExport(const PlaybackExport&) = delete;
  PlaybackExport& operator=(const PlaybackExport&) = delete;

 private:
  void connect(std::string_view entry, std::function<void()> hand_on);
  Chart titled_chart() const;
  std::string suggested_name() const;  // "day-17"

  Window& window_;
  const Language& language_;
  const PlayedRecord& record_;
  const std::shared_ptr<const PlaybackFile>& file_;
  PictureOutput output_;
};

// One line an order or a sample, from 0 on: "5,2.3,%". What is no number is empty.
std::string record_csv(const PlayedRecord& record);

}  // namespace halden
