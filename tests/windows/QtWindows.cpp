#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QWidget>
#include <cstdlib>
#include <memory>

#include "backends/qt/QtProcess.h"
#include "backends/qt/QtToolkit.h"
#include "backends/qt/desktop/Look.h"
#include "backends/qt/peers/CanvasWidget.h"
#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/Scale.h"
#include "platform/forms/PictureBox.h"
#include "viewer/MainViewFrm.h"
#include "windows/ControlFacts.h"
#include "windows/EveryWindow.h"

namespace tavrix::windows {

namespace {

constexpr int LargePoints = 16;

/// TAVRIX_TEST_LOOK: light, dark, accent, or dark accent.
qt::Look LookOfTest() {
    const QByteArray wished = qgetenv("TAVRIX_TEST_LOOK");
    qt::Look look;
    if (wished.contains("dark")) look.scheme = qt::Look::Scheme::Dark;
    if (wished.contains("accent")) look.accent = QColor(0xF6, 0xD3, 0x2D);
    return look;
}

/// One process-wide side of the window system for all tests.
class ProcessEnvironment final : public testing::Environment {
  public:
    void SetUp() override {
        process_ = std::make_unique<qt::QtProcess>("windows_qt_tests");
        process_->Follow(LookOfTest());
        QFont font = QApplication::font();
        if (HasLargeFont()) font.setPointSize(LargePoints);
        QApplication::setFont(font);
    }
    void TearDown() override { process_.reset(); }

  private:
    std::unique_ptr<qt::QtProcess> process_;
};

// GoogleTest owns it.
const testing::Environment* const Registered = testing::AddGlobalTestEnvironment(new ProcessEnvironment);

class QtWindowsTest : public testing::TestWithParam<Window> {};

TEST_P(QtWindowsTest, TheControlsStandWhereFormsPlacedThem) {
    const auto toolkit = MakeToolkit();
    Program program(*toolkit);
    forms::Form& form = GetParam().load(program);
    form.Show();
    for (int rounds = 0; rounds < 5; ++rounds)
        program.app.DoEvents();
    const double ratio = qt::DeviceRatio();
    for (const forms::Control* control : ControlsOf(form)) {
        if (!HasItsPlace(*control)) continue;
        const QWidget& widget = *qt::NativeOf(*control->Peer()).Native();
        // A widget that shows pixels takes in all that it shows a part of.
        const bool pixels = dynamic_cast<const qt::CanvasWidget*>(&widget) != nullptr;
        const PixelRect bounds = control->PixelBounds();
        EXPECT_EQ(widget.geometry(),
                  pixels ? qt::EnclosingLogical(bounds, ratio) : qt::NearestLogical(bounds, ratio))
            << control->Name();
        const bool scrolls = dynamic_cast<const forms::PictureBox*>(control->Parent()) != nullptr;
        EXPECT_TRUE(scrolls || widget.window()->rect().contains(
                                   QRect(widget.mapTo(widget.window(), QPoint(0, 0)), widget.size())))
            << control->Name();
        if (!control->Visible) continue;
        QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
        ASSERT_NE(seen, nullptr) << control->Name();
        const bool plain = seen->role() == QAccessible::StaticText || seen->role() == QAccessible::Grouping;
        EXPECT_TRUE(plain || !seen->text(QAccessible::Name).isEmpty()) << control->Name();
    }
    if (&form != &program.View()) program.app.Unload(form);
}

INSTANTIATE_TEST_SUITE_P(Windows, QtWindowsTest, testing::ValuesIn(EveryWindow()),
                         [](const auto& instance) { return NameOf(instance); });

}  // namespace

bool HasLargeFont() {
    return std::getenv("TAVRIX_TEST_LARGE_FONT") != nullptr;
}

std::unique_ptr<forms::Toolkit> MakeToolkit() {
    return std::make_unique<qt::QtToolkit>([](const std::string& path) { return path; });
}

}  // namespace tavrix::windows
