// What only a window system shows: texts in their fonts.

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QGuiApplication>

#include "backends/qt/peers/FittedText.h"

namespace tavrix::conformance {
namespace {

QFont FontOf(double points) {
    QFont font = QGuiApplication::font();
    font.setPointSizeF(points);
    return font;
}

TEST(FittedTextTest, ATextThatFitsKeepsItsFont) {
    const QFont font = FontOf(9);
    const qt::FittedText text(QStringLiteral("...ly\\Pictures\\Summer\\beach.bmp"), font, {400, 22});
    EXPECT_TRUE(text.Fits());
    EXPECT_EQ(text.Lines(), 1);
    EXPECT_EQ(text.Font(), font);
}

TEST(FittedTextTest, TwoHundredCharactersAreReadableInAFewLines) {
    const QString words = QStringLiteral("What is to be seen ").repeated(11).left(200);
    for (const double points : {9.0, 14.0}) {
        for (const QString& text : {words, QString(200, QLatin1Char('e'))}) {
            for (const int height : {50, 68}) {
                const qt::FittedText fitted(text, FontOf(points), {400, height});
                EXPECT_TRUE(fitted.Fits()) << points << " points, " << height << " high";
                EXPECT_GT(fitted.Lines(), 1);
            }
        }
    }
    EXPECT_FALSE(qt::FittedText(words.repeated(9), FontOf(9), {400, 50}).Fits());
}

TEST(FittedTextTest, ALineOfALargeFontFitsBesideTheButtonsOfTheNavigator) {
    const qt::FittedText random(QStringLiteral("Showing random slide show."), FontOf(14), {197, 22});
    EXPECT_TRUE(random.Fits());
    EXPECT_LT(QFontInfo(random.Font()).pixelSize(), QFontInfo(FontOf(14)).pixelSize());
    EXPECT_TRUE(qt::FittedText(QString(33, QLatin1Char('W')), FontOf(14), {400, 22}).Fits());
}

TEST(FittedTextTest, ABrokenLineIsAnotherLine) {
    const qt::FittedText text(QStringLiteral("one\ntwo"), FontOf(9), {400, 60});
    EXPECT_EQ(text.Lines(), 2);
}

}  // namespace
}  // namespace tavrix::conformance
