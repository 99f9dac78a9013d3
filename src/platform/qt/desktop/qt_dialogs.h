// The boxes the user sees. They run inside handlers of the logic: when the program ends while one is open,
// the box closes and the handler ends with ProgramEnded.
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <map>
#include <vector>

#include "platform/dialogs.h"

class QDialog;
class QFileDialog;
class QMessageBox;

namespace halden {

class QtWorld;

class QtDialogs : public Dialogs {
 public:
  explicit QtDialogs(QtWorld& world) : world_(world) {}

  // The window that boxes belong to while no other window of the program is active.
  void set_parent(QWidget* parent) { parent_ = parent; }

  void message(const Message& message) override;
  bool confirm(const Message& question) override;
  void tell(const Message& message) override;
  std::string input(const std::string& prompt, const std::string& title, const std::string& initial) override;
  std::optional<std::string> open_file(const FileQuestion& question) override;
  std::optional<std::string> save_file(const FileQuestion& question) override;

 private:
  // What QDialog::exec gives; throws ProgramEnded when the program ends meanwhile.
  int wait_for_answer(QDialog& box);
  void postpone(const Message& message);
  void tell_postponed();
  std::optional<std::string> choose_file(QFileDialog& box, const FileQuestion& question);
  QWidget* owner() const;
  QWidget* visible_parent() const;

  QtWorld& world_;
  QPointer<QWidget> parent_;
  std::map<std::string, QPointer<QMessageBox>> told_;
  int waiting_boxes_ = 0;           // that wait for an answer
  std::vector<Message> postponed_;  // messages told while a box waited
  QString folder_;
};

// The path with the extension (".csv") added when its file name has none.
QString with_default_extension(const QString& path, const QString& extension);

}  // namespace halden
