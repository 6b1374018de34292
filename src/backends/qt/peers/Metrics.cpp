#include "backends/qt/peers/Metrics.h"

#include <QApplication>
#include <QMenuBar>
#include <QProxyStyle>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "backends/qt/peers/Scale.h"
#include "backends/qt/x11/X11.h"

namespace tavrix::qt {

namespace {

constexpr int HighestMenuBar = 1000;  ///< logical pixels; no font is as large

/// In logical pixels.
int FoundMenuBar() {
    // The first font is loaded here.
    QMenuBar sample;
    sample.addAction(QStringLiteral("X"));
    return sample.sizeHint().height();
}

/// A style that is laid over another has the sizes of that, and no name.
QString NameOfStyle() {
    const QStyle* style = QApplication::style();
    const auto* over = qobject_cast<const QProxyStyle*>(style);
    return (over != nullptr ? over->baseStyle() : style)->name();
}

/// All that the height of a menu bar comes from.
QString LooksOfMenuBar() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return QStringLiteral("%1;%2;%3;%4;%5")
        .arg(QLatin1String(qVersion()), NameOfStyle(), QApplication::font("QMenuBar").toString())
        .arg(screen != nullptr ? screen->logicalDotsPerInch() : 0)
        .arg(DeviceRatio());
}

std::string NoteOf(int height, const QString& looks) {
    return QStringLiteral("%1;%2").arg(QString::number(height), looks).toStdString();
}

/// The height in a note; nothing for a note of other looks, or for none.
std::optional<int> HeightIn(const std::string& note, const QString& looks) {
    const QString text = QString::fromStdString(note);
    const qsizetype end = text.indexOf(QLatin1Char(';'));
    if (end < 0 || text.sliced(end + 1) != looks) return std::nullopt;
    const int height = text.first(end).toInt();
    return height > 0 && height <= HighestMenuBar ? std::optional(height) : std::nullopt;
}

}  // namespace

Metrics::Metrics(std::shared_ptr<x11::FrameQuestion> asked, MenuBarNote note) : note_(std::move(note)) {
    if (!x11::Running()) return;
    question_ = asked ? std::move(asked) : std::make_shared<x11::FrameQuestion>();
}

const Metrics::Frame& Metrics::TheFrame() const {
    if (frame_) return *frame_;
    frame_.emplace();
    if (const auto told = question_ ? question_->Answer() : std::nullopt) {
        frame_->borderWidth = (told->left + told->right + 1) / 2;
        frame_->borderHeight = std::min(told->top, told->bottom);
        frame_->caption = told->top + told->bottom - 2 * frame_->borderHeight;
    }
    question_.reset();
    return *frame_;
}

const Metrics::MenuBar& Metrics::TheMenuBar() const {
    if (menuBar_) return *menuBar_;
    noted_ = note_.read();
    looks_ = LooksOfMenuBar();
    const std::optional<int> known = HeightIn(noted_, looks_);
    const int height = known ? *known : FoundMenuBar();
    menuBar_ = MenuBar{height, CeilToDevice(height, DeviceRatio())};
    return *menuBar_;
}

void Metrics::CheckNote() const {
    if (!menuBar_ || std::exchange(checked_, true)) return;
    // What has changed meanwhile, such as the factor of all texts, which the desktop tells late, will do so again.
    const std::string found = NoteOf(FoundMenuBar(), looks_);
    if (found != noted_) note_.write(found);
}

int Metrics::Of(forms::SystemMetric metric) const {
    switch (metric) {
        case forms::SystemMetric::CaptionHeight:
            return TheFrame().caption;
        case forms::SystemMetric::MenuBarHeight:
            return TheMenuBar().device;
        case forms::SystemMetric::SizingBorderWidth:
            return TheFrame().borderWidth;
        case forms::SystemMetric::SizingBorderHeight:
            return TheFrame().borderHeight;
    }
    return 0;
}

}  // namespace tavrix::qt
