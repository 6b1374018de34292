#include "app/ContactSheet.h"

#include <QPainter>

namespace tavrix {
namespace {

constexpr int Columns = 4;
constexpr int Margin = 12;
/// Pixels, inside the margins.
constexpr QSize Cell{250, 210};
constexpr int TextHeight = 20;

}  // namespace

void ContactSheet::Add(const QPixmap& window, const QString& text) {
    const bool large = window.width() > Cell.width() || window.height() > Cell.height();
    entries_.push_back(
        {large ? window.scaled(Cell, Qt::KeepAspectRatio, Qt::SmoothTransformation) : window, text});
}

QPixmap ContactSheet::Draw() const {
    const int rows = (static_cast<int>(entries_.size()) + Columns - 1) / Columns;
    const QSize step{Cell.width() + Margin, Cell.height() + TextHeight + Margin};
    QPixmap sheet(Columns * step.width() + Margin, rows * step.height() + Margin);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; const Entry& entry : entries_) {
        const QPoint corner{Margin + i % Columns * step.width(), Margin + i / Columns * step.height()};
        const QRect cell{corner, Cell};
        QRect shown{{}, entry.window.size()};
        shown.moveCenter(cell.center());
        painter.drawPixmap(shown.topLeft(), entry.window);
        painter.setPen(Qt::lightGray);
        painter.drawRect(shown.adjusted(-1, -1, 0, 0));
        painter.setPen(Qt::black);
        painter.drawText(QRect{cell.left(), cell.bottom(), Cell.width(), TextHeight}, Qt::AlignCenter,
                         entry.text);
        ++i;
    }
    return sheet;
}

}  // namespace tavrix
