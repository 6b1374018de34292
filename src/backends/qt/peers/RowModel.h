#pragma once

#include <QAbstractListModel>

#include "backends/qt/peers/RowIcons.h"
#include "platform/forms/Peers.h"

namespace tavrix::qt {

/// The rows of a list that drops down, read from forms as they are needed.
class RowModel final : public QAbstractListModel {
  public:
    explicit RowModel(const forms::ListContent& content) : content_(&content) {}

    /// All rows are others now.
    void Reset();
    /// Rows look otherwise; `end` exclusive.
    void Changed(int first, int end);
    /// The content goes; there are no rows from here on.
    void Detach();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    const forms::ListContent* content_;
    RowIcons icons_;
};

}  // namespace tavrix::qt
