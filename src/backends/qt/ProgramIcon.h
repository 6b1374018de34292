#pragma once

#include <QIcon>
#include <memory>

namespace tavrix::qt {

/// The program's icon, in the sizes that window managers and task bars show. Its pictures are decoded when they are first
/// asked for.
class ProgramIcon {
  public:
    ProgramIcon();

    /// Decodes the pictures now; any thread may do it, and whoever needs them meanwhile waits.
    void Decode() const;

    [[nodiscard]] QIcon Icon() const;

  private:
    class Pictures;
    class Engine;
    std::shared_ptr<Pictures> pictures_;
};

}  // namespace tavrix::qt
