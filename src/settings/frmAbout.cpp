#include "settings/frmAbout.h"

#include "base/RuntimeError.h"
#include "core/HelpContexts.h"
#include "core/Version.h"
#include "platform/services/MotionKey.h"

namespace tavrix {
namespace {

// Twips.
constexpr float PictureWidth = 6300;
constexpr float PictureHeight = 3000;

constexpr int SeaPause = 80;   ///< milliseconds: the eye takes it for a movement
constexpr int DayPause = 250;  ///< milliseconds
constexpr int StepsOfDay = 160;
constexpr double Morning = 0.3;  ///< when the day begins: the picture is bright at the first look
constexpr double FirstTrip = 0.25;
constexpr double TripsOfDay = 1.6;

/// Major and minor number.
std::string ShortVersion() {
    const std::string version = VersionText;
    return version.substr(0, version.find('.', version.find('.') + 1));
}

double Fraction(double number) {
    return number - static_cast<int>(number);
}

}  // namespace

frmAbout::frmAbout(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmAbout"}), module_(module) {
    Caption = "About " + std::string(ProductName);
    HelpContext = HelpContext::About;
    picAbout.Width = PictureWidth;
    picAbout.Height = PictureHeight;
    picAbout.AccessibleName = "A sailing boat on the sea";
    picAbout.OnClick = [this] {
        asked_ = true;
        Begin();
    };
    lblProduct.Caption = std::string(ProductName) + ": pictures, slide shows and screen savers";
    lblVersion.Caption = "Version " + ShortVersion();
    cmdOK.Caption = "&OK";
    cmdOK.ToolTip = "Click here to continue.";
    cmdOK.Default = true;
    cmdOK.Cancel = true;
    cmdOK.OnClick = [this] { App().Unload(*this); };
    TimerSea.Interval = SeaPause;
    TimerSea.OnTimer = [this] { TimerSea_Timer(); };
    TimerDay.Interval = DayPause;
    TimerDay.OnTimer = [this] { TimerDay_Timer(); };
    using namespace forms;
    SetLayout(Column({picAbout, Row({Column({lblProduct, lblVersion}), Stretch(), cmdOK})}));
}

void frmAbout::Form_Load() {
    ShowMoment({Morning, FirstTrip, 0});
    if (!MayMove()) Rest();
}

void frmAbout::ShowMoment(const AboutMoment& moment) {
    moment_ = moment;
    Begin();
}

void frmAbout::Form_Unload(bool&) {
    Rest();
}

void frmAbout::Begin() {
    steps_ = 0;
    TimerSea.Enabled = true;
    TimerDay.Enabled = true;
    Draw();
}

void frmAbout::Rest() {
    TimerSea.Enabled = false;
    TimerDay.Enabled = false;
}

bool frmAbout::MayMove() const {
    if (asked_) return true;
    const auto moves = module_.platform.registry.Read(MotionKey, MotionName);
    return !moves || moves->text != "0";
}

void frmAbout::TimerSea_Timer() {
    // The desktop tells its wish when it comes to it.
    if (!MayMove()) {
        Rest();
        return;
    }
    constexpr double secondsOfDay = StepsOfDay * DayPause / 1000.0;
    constexpr double seconds = SeaPause / 1000.0;
    moment_.swell += seconds;
    moment_.trip = Fraction(moment_.trip + seconds * TripsOfDay / secondsOfDay);
    Draw();
}

void frmAbout::TimerDay_Timer() {
    moment_.day = Fraction(moment_.day + 1.0 / StepsOfDay);
    if (++steps_ >= StepsOfDay) Rest();
}

void frmAbout::Draw() {
    // A picture that cannot be drawn is none that anybody needs.
    SkipFailure([this] {
        DrawAboutPicture(picAbout.Bitmap(), moment_);
        picAbout.Refresh();
    });
}

}  // namespace tavrix
