// Charts and texts on the clipboard, and charts as files.
#pragma once

#include "platform/files.h"
#include "platform/pictures.h"

namespace halden {

class QtPictures : public Pictures {
 public:
  explicit QtPictures(Files& files) : files_(files) {}

  void copy_chart(const Chart& chart) override;
  void copy_text(const std::string& text) override;
  FileFailure save_chart(const Chart& chart, const std::string& path) override;

 private:
  Files& files_;
};

}  // namespace halden
