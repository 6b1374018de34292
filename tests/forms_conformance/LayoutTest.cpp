#include <cmath>

#include "forms_conformance/ConformanceTest.h"
#include "platform/forms/ControlArray.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

bool Intersect(const PixelRect& a, const PixelRect& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

bool Contains(const PixelRect& outer, const PixelRect& inner) {
    return inner.left >= outer.left && inner.top >= outer.top &&
           inner.left + inner.width <= outer.left + outer.width &&
           inner.top + inner.height <= outer.top + outer.height;
}

class LayoutForm : public Form {
  public:
    LayoutForm(Application& application, std::vector<std::string>& events, bool resizable = false)
        : Form(application, {.name = "LayoutForm", .resizable = resizable}), log(events) {
        name.Caption = "&Name:";
        name.SetBuddy(field);
        options.Caption = "Options";
        check.Caption = "&Keep";
        message.Caption = "Working...";
        picture.Move(0, 0, 1500, 750);
        ok.Caption = "&OK";
        cancel.Caption = "&Cancel";
        SetLayout(Column({Row({name, field}), Group(options, {check, message, picture}),
                          Growing(AtLeast(1500, 600, space)), Row({Stretch(), ok, cancel})}));
    }

    Label name{*this, "name"};
    TextBox field{*this, "field"};
    Frame options{*this, "options"};
    CheckBox check{options, "check"};
    Label message{options, "message"};
    PictureBox picture{options, "picture"};
    Label space{*this, "space"};
    CommandButton ok{*this, "ok"};
    CommandButton cancel{*this, "cancel"};
    std::vector<std::string>& log;

    void Form_Resize() override { log.emplace_back("resize"); }
};

class LayoutTest : public ConformanceTest {
  protected:
    void Show(Form& form) {
        form.Show();
        driver->Settle();
    }
    [[nodiscard]] PixelRect Place(Control& control) { return driver->ShownBounds(control); }
    [[nodiscard]] PixelSize Inside(const Form& form) const {
        const ScreenInfo screen = app.GetToolkit().Screen();
        return {static_cast<int>(std::lround(form.ScaleWidth() / screen.twipsPerPixelX)),
                static_cast<int>(std::lround(form.ScaleHeight() / screen.twipsPerPixelY))};
    }
    void ExpectAllShown(LayoutForm& form) {
        const PixelSize inside = Inside(form);
        const std::vector<Control*> outer{&form.name, &form.field, &form.options, &form.ok, &form.cancel};
        for (Control* a : outer) {
            EXPECT_TRUE(Contains({0, 0, inside.width, inside.height}, Place(*a))) << a->Name();
            for (Control* b : outer)
                EXPECT_TRUE(a == b || !Intersect(Place(*a), Place(*b))) << a->Name() << " " << b->Name();
        }
        for (Control* inner : std::initializer_list<Control*>{&form.check, &form.message, &form.picture})
            EXPECT_TRUE(Contains(Place(form.options), Place(*inner))) << inner->Name();
        for (Control* text :
             std::initializer_list<Control*>{&form.name, &form.check, &form.message, &form.ok}) {
            const PixelSize natural = text->Peer()->NaturalSize();
            EXPECT_GE(Place(*text).width, natural.width) << text->Name();
            EXPECT_GE(Place(*text).height, natural.height) << text->Name();
        }
    }
};

TEST_F(LayoutTest, ControlsStandWhereTheirPropertiesSay) {
    auto& form = app.Load<LayoutForm>(log);
    Show(form);
    ExpectAllShown(form);
    for (Control* control :
         std::initializer_list<Control*>{&form.name, &form.check, &form.picture, &form.ok, &form.options})
        EXPECT_EQ(Place(*control), control->PixelBoundsInWindow()) << control->Name();
    EXPECT_GT(Inside(form).width, 0);
    EXPECT_EQ(Count(log, "resize"), 1);
}

TEST_F(LayoutTest, APictureKeepsItsSize) {
    auto& form = app.Load<LayoutForm>(log);
    Show(form);
    const float twips = app.Screen().TwipsPerPixelX();
    EXPECT_EQ(Place(form.picture).width, static_cast<int>(1500 / twips));
    EXPECT_EQ(Place(form.picture).height, static_cast<int>(750 / twips));
    EXPECT_EQ(form.picture.Width, 1500);
    form.picture.Width = 4500;
    driver->Settle();
    EXPECT_EQ(Place(form.picture).width, static_cast<int>(4500 / twips));
    ExpectAllShown(form);
}

TEST_F(LayoutTest, ALongerCaptionWidensTheWindowAndAShorterOneNarrowsIt) {
    auto& form = app.Load<LayoutForm>(log);
    Show(form);
    const int before = Inside(form).width;
    log.clear();
    form.message.Caption = "Working on something that takes quite a number of words to be told of...";
    EXPECT_EQ(Count(log, "resize"), 1);
    driver->Settle();
    EXPECT_GT(Inside(form).width, before);
    ExpectAllShown(form);
    form.message.Caption = "Working...";
    driver->Settle();
    EXPECT_EQ(Inside(form).width, before);
    ExpectAllShown(form);
}

TEST_F(LayoutTest, AFrameIsWideEnoughForACaptionThatChanges) {
    auto& form = app.Load<LayoutForm>(log);
    Show(form);
    const int before = Place(form.options).width;
    form.options.Caption = "Options of something that takes quite a number of words to be told of";
    driver->Settle();
    EXPECT_EQ(driver->ShownText(form.options), form.options.Caption.Get());
    EXPECT_GT(Place(form.options).width, before);
    EXPECT_GE(Place(form.options).width, form.options.Peer()->NaturalSize().width);
    ExpectAllShown(form);
}

TEST_F(LayoutTest, AHiddenControlKeepsItsPlace) {
    auto& form = app.Load<LayoutForm>(log);
    form.message.Visible = false;
    Show(form);
    const PixelSize before = Inside(form);
    const PixelRect picture = Place(form.picture);
    const PixelRect check = Place(form.check);
    form.message.Visible = true;
    form.check.Visible = false;
    driver->Settle();
    EXPECT_EQ(Inside(form), before);
    EXPECT_EQ(Place(form.picture), picture);
    EXPECT_FALSE(Intersect(Place(form.message), check));
    EXPECT_FALSE(Intersect(Place(form.message), picture));
}

TEST_F(LayoutTest, ALargerFontIsGivenMoreSpace) {
    auto& form = app.Load<LayoutForm>(log);
    Show(form);
    const PixelSize before = Inside(form);
    const int button = Place(form.check).height;
    driver->UserChangesFont(true);
    driver->Settle();
    EXPECT_GT(Inside(form).width, before.width);
    EXPECT_GT(Inside(form).height, before.height);
    EXPECT_GT(Place(form.check).height, button);
    ExpectAllShown(form);
    driver->UserChangesFont(false);
    driver->Settle();
    EXPECT_EQ(Inside(form), before);
}

TEST_F(LayoutTest, TheUserMakesAResizableWindowLarger) {
    auto& form = app.Load<LayoutForm>(log, true);
    Show(form);
    const PixelRect ok = Place(form.ok);
    const PixelRect space = Place(form.space);
    const PixelRect options = Place(form.options);
    log.clear();
    const ScreenInfo screen = app.Screen().Info();
    const int width = static_cast<int>(std::lround(form.Width / screen.twipsPerPixelX));
    const int height = static_cast<int>(std::lround(form.Height / screen.twipsPerPixelY));
    driver->UserResizes(form, width + 100, height + 60);
    driver->Settle();
    EXPECT_EQ(Count(log, "resize"), 1);
    EXPECT_EQ(Place(form.ok).left, ok.left + 100);
    EXPECT_EQ(Place(form.ok).top, ok.top + 60);
    EXPECT_EQ(Place(form.space).height, space.height + 60);
    EXPECT_EQ(Place(form.options).width, options.width + 100);
    ExpectAllShown(form);
    form.message.Caption = "Working on it...";
    driver->Settle();
    EXPECT_EQ(Place(form.ok).left, ok.left + 100);  // the size is the user's
}

TEST_F(LayoutTest, ALongTextGoesIntoLines) {
    class WrapForm : public Form {
      public:
        explicit WrapForm(Application& application) : Form(application, {.name = "WrapForm"}) {
            text.WordWrap = true;
            line.Caption = text.Caption = "This text is much too long for one line of so small a window.";
            line.Literal = true;
            SetLayout(Column({AtLeast(1500, 0, text), AtLeast(1500, 0, line), below}));
        }
        Label text{*this, "text"};
        Label line{*this, "line"};
        CommandButton below{*this, "below"};
    };
    auto& form = app.Load<WrapForm>();
    Show(form);
    EXPECT_GE(Place(form.text).height, 3 * Place(form.line).height);
    EXPECT_LT(Place(form.text).width, form.line.Peer()->NaturalSize().width);
    EXPECT_LE(Place(form.text).top + Place(form.text).height, Place(form.line).top);
    const int before = Inside(form).height;
    form.text.Caption = "Short.";
    driver->Settle();
    EXPECT_LT(Inside(form).height, before);
}

TEST_F(LayoutTest, CellsHaveTheirSizeInPixels) {
    class CellsForm : public Form {
      public:
        explicit CellsForm(Application& application) : Form(application, {.name = "CellsForm"}) {
            std::vector<Layout> items;
            for (std::size_t i = 0; i < cells.Count(); ++i)
                items.emplace_back(cells[i]);
            SetLayout(Row({Cells(3, {60, 40}, 4, items), close}));
        }
        ControlArray<PictureBox, 9> cells{*this, "cells"};
        ControlArray<Image, 9> images{cells, "images"};
        CommandButton close{*this, "close"};
    };
    auto& form = app.Load<CellsForm>();
    for (std::size_t i = 0; i < form.images.Count(); ++i) {
        const float twips = app.Screen().TwipsPerPixelX();
        form.images[i].Move(10 * twips, 8 * twips, 20 * twips, 10 * twips);
    }
    Show(form);
    const PixelRect first = Place(form.cells[0]);
    for (std::size_t i = 0; i < 9; ++i) {
        const int column = static_cast<int>(i % 3);
        const int row = static_cast<int>(i / 3);
        EXPECT_EQ(Place(form.cells[i]), (PixelRect{first.left + column * 64, first.top + row * 44, 60, 40}));
        EXPECT_EQ(Place(form.images[i]),
                  (PixelRect{first.left + column * 64 + 10, first.top + row * 44 + 8, 20, 10}));
    }
    EXPECT_EQ(form.cells[8].Name(), "cells(8)");
    EXPECT_GE(Place(form.close).left, first.left + 3 * 64);
}

TEST_F(LayoutTest, TheHandlersOfAnArrayGetTheIndex) {
    class ArrayForm : public Form {
      public:
        explicit ArrayForm(Application& application) : Form(application, {.name = "ArrayForm"}) {}
        ControlArray<PictureBox, 3> boxes{*this, "boxes"};
        void Form_Load() override {
            Move(0, 0, 6000, 3000);
            for (std::size_t i = 0; i < boxes.Count(); ++i)
                boxes[i].Move(1500 * static_cast<float>(i), 0, 1200, 900);
        }
    };
    auto& form = app.Load<ArrayForm>();
    form.boxes.On(&PictureBox::OnMouseDown, [this](int index, const MouseArguments& mouse) {
        log.push_back(std::to_string(index) + " by " + std::to_string(mouse.button));
    });
    form.boxes.On(&PictureBox::OnClick,
                  [this](int index) { log.push_back(std::to_string(index) + " click"); });
    Show(form);
    driver->UserDrags(form.boxes[2], MouseButton::Left, {5, 5, 5, 5});
    driver->UserDrags(form.boxes[0], MouseButton::Right, {5, 5, 5, 5});
    driver->Settle();
    EXPECT_EQ(log, (std::vector<std::string>{"2 by 1", "2 click", "0 by 2"}));
}

}  // namespace
}  // namespace tavrix::conformance
