#include "shell/ui/progress_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <cmath>

#include "shell/ui/text.h"

namespace vorlane::shell::ui {

namespace {

constexpr int kBarSteps = 1000;
constexpr int kNarrowWindow = 1000;

QString Grouped(std::size_t number) {
  static const QLocale kLocale(QLocale::English, QLocale::UnitedStates);  // never the user's
  return kLocale.toString(static_cast<qulonglong>(number));
}

QString About(double seconds) {
  if (seconds < 1) return "less than 1 s";
  if (seconds < 90) return QString("about %1 s").arg(std::lround(seconds));
  if (seconds < 90 * 60) return QString("about %1 min").arg(std::lround(seconds / 60));
  return QString("about %1 h").arg(std::lround(seconds / 3600));
}

}  // namespace

QString ProgressText(std::size_t done, std::size_t total, std::chrono::duration<double> elapsed) {
  QString text = Grouped(done) + " of " + Grouped(total) + " rows";
  if (done == 0 || done >= total) return text;
  const double remains =
      elapsed.count() * static_cast<double>(total - done) / static_cast<double>(done);
  return text + ", " + Grouped(total - done) + " left, " + About(remains);
}

QString SummaryText(const RunSummary& summary, bool withZeros) {
  QStringList parts;
  for (const ResultName& name : kResultNames) {
    if (!withZeros && summary.Rows(name.result) == 0) continue;
    parts << ToQt(name.caption) + ' ' + Grouped(summary.Rows(name.result));
  }
  return parts.join(QStringLiteral(" · "));
}

ProgressPanel::ProgressPanel(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  left_ = new QLabel;
  left_->setObjectName("lblProgress");
  bar_ = new QProgressBar;
  bar_->setObjectName("prgRows");
  bar_->setAccessibleName("Progress of the rows");
  bar_->setRange(0, kBarSteps);
  bar_->setTextVisible(false);
  bar_->setMaximumHeight(14);
  summary_ = new QLabel;
  summary_->setObjectName("lblSummary");
  summary_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  for (QWidget* widget : {static_cast<QWidget*>(summary_), static_cast<QWidget*>(left_),
                          static_cast<QWidget*>(bar_)}) {
    row->addWidget(widget);
    widget->hide();
  }
}

void ProgressPanel::Begin() {
  done_ = total_ = 0;
  begun_ = Clock::now();
}

void ProgressPanel::Note(std::size_t done, std::size_t total) {
  if (total_ == 0 || done < done_) begun_ = Clock::now();  // the first row of this walk
  done_ = done;
  total_ = total;
}

void ProgressPanel::Draw() {
  if (total_ == 0) return;
  bar_->setValue(static_cast<int>(kBarSteps * done_ / total_));
  left_->setText(ProgressText(done_, total_, Clock::now() - begun_));
  left_->show();
  bar_->show();
  summary_->hide();
}

void ProgressPanel::End() {
  total_ = 0;
  left_->hide();
  bar_->hide();
  summary_->setVisible(!summary_->text().isEmpty());
}

void ProgressPanel::ShowSummary(const RunSummary& summary) {
  wholeSummary_ = SummaryText(summary, true);
  shortSummary_ = SummaryText(summary, false);
  FitSummary();
  QStringList lines;
  for (const ResultName& name : kResultNames) {
    lines << ToQt(name.caption) + ": " + Grouped(summary.Rows(name.result));
  }
  lines << "Rows: " + Grouped(summary.Total());
  summary_->setToolTip(lines.join('\n'));
  summary_->setAccessibleName(lines.join(", "));
  summary_->setVisible(total_ == 0);
}

void ProgressPanel::FitInto(int windowWidth) {
  windowWidth_ = windowWidth;
  bar_->setFixedWidth(windowWidth < kNarrowWindow ? 50 : 160);
  FitSummary();
}

void ProgressPanel::FitSummary() {
  const bool fits = summary_->fontMetrics().horizontalAdvance(wholeSummary_) <= windowWidth_ / 2;
  summary_->setText(fits || shortSummary_.isEmpty() ? wholeSummary_ : shortSummary_);
}

void ProgressPanel::ClearSummary() {
  wholeSummary_.clear();
  shortSummary_.clear();
  summary_->clear();
  summary_->hide();
}

}  // namespace vorlane::shell::ui
