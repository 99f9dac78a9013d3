#include "platform/qt/desktop/qt_dialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpression>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/program_end.h"
#include "platform/qt/core/qt_world.h"

namespace halden {

namespace {

constexpr QMessageBox::Icon box_icons[] = {QMessageBox::NoIcon, QMessageBox::Information,
                                           QMessageBox::Question, QMessageBox::Warning,
                                           QMessageBox::Critical};

QString title_or_program_name(const std::string& title) {
  return title.empty() ? QStringLiteral("Halden") : QString::fromStdString(title);
}

void fill(QMessageBox& box, const Message& message) {
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(message.text));
  box.setWindowTitle(title_or_program_name(message.title));
  box.setIcon(box_icons[static_cast<int>(message.icon)]);
}

// Qt does not show the pattern after each caption (HideNameFilterDetails). To Qt "*.*" means names with a dot
// only.
QStringList name_filters(const std::vector<FileFilter>& filters) {
  QStringList result;
  for (const auto& filter : filters) {
    const std::string pattern = filter.pattern == "*.*" ? "*" : filter.pattern;
    result << QString::fromStdString(filter.caption + "(" + pattern + ")");
  }
  return result;
}

// That of the chosen kind of file ("SVG (*.svg)"), where it names one.
QString extension_of(const QString& name_filter, const std::string& otherwise) {
  static const QRegularExpression pattern(QStringLiteral("\\(\\*(\\.\\w+)\\)$"));
  const QRegularExpressionMatch match = pattern.match(name_filter);
  return match.hasMatch() ? match.captured(1) : QString::fromStdString(otherwise);
}

}  // namespace

void QtDialogs::message(const Message& message) {
  QMessageBox box(owner());
  box.setObjectName(QStringLiteral("message_box"));
  fill(box, message);
  box.setStandardButtons(QMessageBox::Ok);
  wait_for_answer(box);
}

bool QtDialogs::confirm(const Message& question) {
  QMessageBox box(owner());
  box.setObjectName(QStringLiteral("confirm_box"));
  fill(box, question);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  box.setDefaultButton(question.preset == Preset::yes ? QMessageBox::Yes : QMessageBox::No);
  return wait_for_answer(box) == QMessageBox::Yes;
}

void QtDialogs::tell(const Message& message) {
  if (waiting_boxes_ > 0) {
    postpone(message);
    return;
  }
  QPointer<QMessageBox>& told = told_[message.text];
  // A closed box still exists, hidden, until the event loop deletes it.
  if (world_.ending() || (told && told->isVisible())) return;
  auto* box = new QMessageBox(visible_parent());
  told = box;
  box->setObjectName(QStringLiteral("notice_box"));
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setModal(false);
  fill(*box, message);
  box->setStandardButtons(QMessageBox::Ok);
  QObject::connect(&world_, &QtWorld::ended, box, &QWidget::close);
  box->show();
}

// While a box waits for its answer, the user could not close another one.
void QtDialogs::postpone(const Message& message) {
  const auto same = [&message](const Message& other) { return other.text == message.text; };
  if (std::none_of(postponed_.begin(), postponed_.end(), same)) postponed_.push_back(message);
}

void QtDialogs::tell_postponed() {
  for (const Message& message : std::exchange(postponed_, {})) tell(message);
}

std::string QtDialogs::input(const std::string& prompt, const std::string& title,
                             const std::string& initial) {
  QDialog box(owner());
  box.setObjectName(QStringLiteral("input_box"));
  box.setWindowTitle(title_or_program_name(title));
  QLabel label(QString::fromStdString(prompt));
  label.setTextFormat(Qt::PlainText);
  QLineEdit edit(QString::fromStdString(initial));
  edit.setObjectName(QStringLiteral("input_value"));
  edit.setAccessibleName(label.text());
  edit.selectAll();
  QDialogButtonBox buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  QObject::connect(&buttons, &QDialogButtonBox::accepted, &box, &QDialog::accept);
  QObject::connect(&buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
  QVBoxLayout layout(&box);
  for (QWidget* part :
       {static_cast<QWidget*>(&label), static_cast<QWidget*>(&edit), static_cast<QWidget*>(&buttons)})
    layout.addWidget(part);
  return wait_for_answer(box) == QDialog::Accepted ? edit.text().toStdString() : std::string();
}

std::optional<std::string> QtDialogs::open_file(const FileQuestion& question) {
  QFileDialog box(owner());
  box.setAcceptMode(QFileDialog::AcceptOpen);
  box.setFileMode(QFileDialog::ExistingFile);
  return choose_file(box, question);
}

std::optional<std::string> QtDialogs::save_file(const FileQuestion& question) {
  QFileDialog box(owner());
  box.setAcceptMode(QFileDialog::AcceptSave);
  box.setFileMode(QFileDialog::AnyFile);
  box.setOption(QFileDialog::DontConfirmOverwrite);
  return choose_file(box, question);
}

std::optional<std::string> QtDialogs::choose_file(QFileDialog& box, const FileQuestion& question) {
  box.setObjectName(QStringLiteral("file_box"));
  if (!folder_.isEmpty()) box.setDirectory(folder_);
  box.setOption(QFileDialog::HideNameFilterDetails);
  if (!question.filters.empty()) box.setNameFilters(name_filters(question.filters));
  if (!question.suggested_name.empty()) box.selectFile(QString::fromStdString(question.suggested_name));
  if (wait_for_answer(box) != QDialog::Accepted || box.selectedFiles().isEmpty()) return std::nullopt;
  const QString chosen = box.selectedFiles().constFirst();
  folder_ = QFileInfo(chosen).absolutePath();
  // A name that was picked from the list is complete, with or without an extension.
  if (QFileInfo::exists(chosen)) return chosen.toStdString();
  return with_default_extension(chosen, extension_of(box.selectedNameFilter(), question.default_extension))
      .toStdString();
}

int QtDialogs::wait_for_answer(QDialog& box) {
  if (world_.ending()) throw ProgramEnded{};
  world_.refresh();
  world_.end_wait();
  QObject::connect(&world_, &QtWorld::ended, &box, &QDialog::reject);
  ++waiting_boxes_;
  const int answer = box.exec();
  --waiting_boxes_;
  if (world_.ending()) throw ProgramEnded{};
  if (waiting_boxes_ == 0) tell_postponed();
  return answer;
}

// Never a message box: a notice that closes takes the boxes it owns along, even one that still waits.
QWidget* QtDialogs::owner() const {
  QWidget* active = QApplication::activeWindow();
  if (active != nullptr && qobject_cast<QMessageBox*>(active) == nullptr) return active;
  return visible_parent();
}

QWidget* QtDialogs::visible_parent() const {
  return parent_ != nullptr && parent_->isVisible() ? parent_.data() : nullptr;
}

QString with_default_extension(const QString& path, const QString& extension) {
  return QFileInfo(path).fileName().contains(QLatin1Char('.')) ? path : path + extension;
}

}  // namespace halden
