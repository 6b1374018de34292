#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace tavrix::qt {

/// Runs a desktop's own tool and waits for it, three seconds at most: what it prints, without blanks around it. Nothing
/// where the tool is missing, fails or does not end.
[[nodiscard]] std::optional<QString> RunDesktopTool(const QString& program, const QStringList& arguments);

}  // namespace tavrix::qt
