#pragma once

#include <QAbstractListModel>
#include <QIcon>
#include <array>

#include "platform/forms/Peers.h"

namespace tavrix::qt {

/// The rows of a list, read from forms as they are needed.
class RowModel final : public QAbstractListModel {
  public:
    static constexpr int IndentRole = Qt::UserRole;  ///< steps to the right

    explicit RowModel(const forms::ListContent& content) : content_(&content) {}

    /// All rows are others now.
    void Reset();
    /// The content goes; there are no rows from here on.
    void Detach();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    [[nodiscard]] const QIcon& IconOf(forms::RowIcon icon) const;

    const forms::ListContent* content_;
    mutable std::array<QIcon, 8> icons_;  ///< each made when a row first shows it
};

}  // namespace tavrix::qt
