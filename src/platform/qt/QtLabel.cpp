#include "platform/qt/QtLabel.h"

namespace tavrix::qt {

namespace {

/// The text that a caption shows. Qt marks mnemonics only in labels that have a buddy.
QString Displayed(const std::string& caption) {
    const QString raw = QString::fromStdString(caption);
    QString shown;
    shown.reserve(raw.size());
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw[i] == QLatin1Char('&') && i + 1 < raw.size()) ++i;
        if (raw[i] != QLatin1Char('\r')) shown += raw[i];
    }
    return shown;
}

}  // namespace

LabelWidget::LabelWidget(QWidget& parent, const SinkPort& port) : QLabel(&parent), port_(port) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setAttribute(Qt::WA_NoMousePropagation);
    setVisible(false);
}

void QtLabel::SetBounds(const PixelRect& bounds) {
    Get().setWordWrap(true);  // without a layout the text has to keep within the label
    QtControl::SetBounds(bounds);
}

void QtLabel::SetText(const std::string& text) {
    Get().setText(Displayed(text));
}

}  // namespace tavrix::qt
