// Pictures and texts on the clipboard, and pictures as files.
#pragma once

#include "platform/files.h"
#include "platform/pictures.h"

namespace halden {

struct PaperPicture;

class QtPictures : public Pictures {
 public:
  explicit QtPictures(Files& files) : files_(files) {}

  void copy_chart(const Chart& chart) override;
  void copy_dots(const DotPicture& picture) override;
  void copy_text(const std::string& text) override;
  FileFailure save_chart(const Chart& chart, const std::string& path) override;
  FileFailure save_dots(const DotPicture& picture, const std::string& path) override;

 private:
  FileFailure save(const PaperPicture& picture, const std::string& path);

  Files& files_;
};

}  // namespace halden
