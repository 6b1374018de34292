#pragma once

#include <QPointer>
#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

#include "backends/qt/TitleLock.h"
#include "backends/qt/peers/Metrics.h"
#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/WindowWidget.h"

namespace tavrix::qt {

class QtMenuItem;
namespace x11 {
class HostWindow;
}

class QtWindow final : public QtControl<forms::WindowPeer, WindowWidget> {
  public:
    /// With a host the window fills that one.
    QtWindow(const SinkPort& port, const forms::WindowTraits& traits, const Metrics& metrics,
             ScreenPointer& pointer, x11::HostWindow* host);
    ~QtWindow() override;

    void SetTitle(const std::string& title) override;
    void SetPlacement(const PixelRect& outer, forms::WindowState state) override;
    void SetInnerSize(const forms::PixelSize& size, const forms::PixelSize& least) override;
    void SetOwner(forms::WindowPeer* owner) override;
    void Show(bool modal) override;
    void Hide() override;
    void SetTopmost(bool topmost) override;
    void SetBackColor(Colour colour) override;
    void SetVisible(bool visible) override;
    void SetPointer(forms::MousePointer pointer) override;

    [[nodiscard]] QWidget* ControlParent() const override { return &Get().Content(); }
    /// What the menus of the form lie in: the menu bar, or the window, where they only open as popups.
    [[nodiscard]] QWidget* MenuParent() const {
        return Get().MenuBar() != nullptr ? static_cast<QWidget*>(Get().MenuBar()) : &Get();
    }

    /// A menu of the bar, which is made and filled once the window has been painted, or a key is pressed before: its text
    /// loads the first font, and a picture does not wait for that.
    void AddBarMenu(QtMenuItem& menu) { barMenus_.push_back(&menu); }
    void RemoveBarMenu(QtMenuItem& menu) { std::erase(barMenus_, &menu); }
    [[nodiscard]] bool BarWaits() const { return Get().MenuBar() != nullptr && !menusMade_; }

  private:
    /// Where the widget goes, in logical pixels: the corner of the frame and the size without the frame.
    struct Place {
        QPoint corner;
        QSize client;
        friend bool operator==(const Place&, const Place&) = default;
    };

    [[nodiscard]] Place PlaceOf(const PixelRect& outer) const;
    [[nodiscard]] int FrameWidth() const { return fullScreen_ ? 0 : metrics_.FrameWidth(); }
    [[nodiscard]] int FrameHeight() const { return fullScreen_ ? 0 : metrics_.FrameHeight(); }
    void Size(const QSize& client);
    void Map();
    void CoverDisplay();
    void MapInHost();
    void FillHost();
    void PlaceAgain();
    /// Whether the window manager has put its frame around the mapped window, at this place.
    [[nodiscard]] bool IsFramedAt(const QPoint& corner) const;
    void MapWhatWaitsForIt();
    void TellPointer();
    void ScheduleReport(bool answered);
    void Report();
    void AfterPaint();
    void MakeMenus();
    void HoldTitle();

    const Metrics& metrics_;
    ScreenPointer& pointer_;
    x11::HostWindow* const host_;  ///< null for a window of our own desktop
    std::unique_ptr<QWindow> hostHandle_;
    std::vector<QtMenuItem*> barMenus_;
    QTimer mapTimer_;
    bool waitWindow_;
    bool resizable_;
    bool fullScreen_;
    QPointer<QWidget> owner_;
    bool waitsForOwner_ = false;  ///< shown, but mapped only behind its owner
    QSize least_;                 ///< of the inside, for good
    bool mappedBefore_ = false;
    bool hidesPointer_ = false;
    bool toldHiding_ = false;
    bool topmost_ = false;
    bool painted_ = false;
    bool menusMade_ = false;
    forms::WindowState state_ = forms::WindowState::Normal;  ///< as forms know it
    std::optional<PixelRect> outer_;                         ///< as forms know it
    bool placed_ = false;    ///< forms said where it goes, or the window system did
    bool asked_ = false;     ///< forms asked for a size and have not been told the answer
    bool answered_ = false;  ///< the window system has said something since
    bool reportComing_ = false;
    std::optional<TitleLock> titleLock_;
};

}  // namespace tavrix::qt
