#include "ui/kit/alert/PanelShape.h"

#include <QImage>
#include <QPainter>
#include <QQuickWindow>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <utility>

namespace {

using kit::PanelPlace;
using kit::PanelShape;

constexpr QSizeF Panel(200, 120);
constexpr QSizeF Window(800, 600);

struct Colours
{
    QColor top = Qt::black;
    QColor bottom = Qt::black;
    QColor edge = Qt::black;
    QColor shadow = Qt::transparent;
};

void prepare(PanelShape& shape, const Colours& colours)
{
    shape.setSize(Panel + 2 * QSizeF(PanelShape::Reach, PanelShape::Reach));
    shape.setProperty("topColor", colours.top);
    shape.setProperty("bottomColor", colours.bottom);
    shape.setProperty("edgeColor", colours.edge);
    shape.setProperty("shadowColor", colours.shadow);
}

QImage pictureOf(const PanelPlace& place, const Colours& colours)
{
    PanelShape shape;
    prepare(shape, colours);
    shape.setPlace(place);
    QImage picture(shape.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    shape.paint(&painter);
    return picture;
}

// The panel beside that anchor, in one colour without a shadow, turned so that its arrow points up.
QImage pictureWithArrowUp(const PanelPlace& place)
{
    const QImage picture = pictureOf(place, {});
    switch (place.arrowEdge()) {
    case PanelPlace::BottomEdge:
        return picture.mirrored(false, true);
    case PanelPlace::LeftEdge:
        return picture.transformed(QTransform(0, 1, 1, 0, 0, 0));
    case PanelPlace::RightEdge:
        return picture.transformed(QTransform(0, 1, 1, 0, 0, 0)).mirrored(false, true);
    default:
        return picture;
    }
}

// The first and the last column that is painted so far above the panel; {-1, -1} where none is.
std::pair<int, int> columnsAbovePanel(const QImage& picture, int distance)
{
    std::pair<int, int> columns{ -1, -1 };
    const int row = static_cast<int>(PanelShape::Reach) - distance;
    for (int column = 0; column < picture.width(); ++column)
        if (qAlpha(picture.pixel(column, row)) > 127) {
            columns.first = columns.first < 0 ? column : columns.first;
            columns.second = column;
        }
    return columns;
}

// Anchors below, above, left and right of which there is no room but on one side, none of them in the panel's middle.
constexpr std::array<std::pair<PanelPlace::ArrowEdge, QRectF>, 4> AnchorOfEdge{ {
    { PanelPlace::TopEdge, { 20, 100, 100, 20 } },
    { PanelPlace::BottomEdge, { 20, 540, 100, 20 } },
    { PanelPlace::LeftEdge, { 0, 10, 100, 580 } },
    { PanelPlace::RightEdge, { 700, 10, 100, 580 } },
} };

} // namespace

TEST(PanelShape, hasAnArrowOnEachEdgeThatNarrowsToItsTip)
{
    for (const auto& [edge, anchor] : AnchorOfEdge) {
        SCOPED_TRACE(edge);
        const PanelPlace place(Panel, anchor, Window);
        ASSERT_EQ(place.arrowEdge(), edge);
        const QImage picture = pictureWithArrowUp(place);
        for (const int distance : { 2, 5, 8, 11 }) {
            const auto [first, last] = columnsAbovePanel(picture, distance);
            EXPECT_NEAR((first + last + 1) / 2.0, PanelShape::Reach + place.arrowTip(), 1) << distance;
            const double narrowing = 1 - distance / PanelPlace::ArrowLength;
            EXPECT_NEAR(last - first + 1, 2 * PanelPlace::ArrowHalfWidth * narrowing, 4) << distance;
        }
        EXPECT_EQ(columnsAbovePanel(picture, static_cast<int>(PanelPlace::ArrowLength) + 3), std::pair(-1, -1));
    }
}

TEST(PanelShape, isOneOutlineWithItsArrow)
{
    for (const auto& [edge, anchor] : AnchorOfEdge) {
        SCOPED_TRACE(edge);
        const PanelPlace place(Panel, anchor, Window);
        const QImage picture = pictureWithArrowUp(place);
        const int tip = static_cast<int>(PanelShape::Reach + place.arrowTip());
        for (int row = static_cast<int>(PanelShape::Reach) - 10; row < picture.height() / 2; ++row)
            EXPECT_EQ(picture.pixel(tip, row), qRgb(0, 0, 0)) << row;
    }
}

TEST(PanelShape, hasNoArrowWhereItBelongsToNothingThatIsSeen)
{
    const QImage picture = pictureWithArrowUp(PanelPlace(Panel, {}, Window));
    const int reach = static_cast<int>(PanelShape::Reach);
    for (int distance = 1; distance < reach; ++distance)
        EXPECT_EQ(columnsAbovePanel(picture, distance), std::pair(-1, -1)) << distance;
    EXPECT_EQ(columnsAbovePanel(picture, -60), std::pair(reach, reach + 199));
}

TEST(PanelShape, hasCornersOfItsRadius)
{
    const QImage picture = pictureWithArrowUp(PanelPlace(Panel, {}, Window));
    for (int row = 0; row < 12; ++row) {
        const double below = PanelPlace::CornerRadius - row - 0.5;
        const double beside = std::sqrt(PanelPlace::CornerRadius * PanelPlace::CornerRadius - below * below);
        const auto [first, last] = columnsAbovePanel(picture, -row);
        EXPECT_NEAR(first, PanelShape::Reach + PanelPlace::CornerRadius - beside, 1) << row;
        EXPECT_NEAR(last + 1, PanelShape::Reach + 200 - PanelPlace::CornerRadius + beside, 1) << row;
    }
}

TEST(PanelShape, hasNoStepsInItsOutline)
{
    const QImage picture = pictureWithArrowUp(PanelPlace(Panel, AnchorOfEdge[0].second, Window));
    int between = 0;
    for (int column = 0; column < picture.width(); ++column)
        between += qAlpha(picture.pixel(column, static_cast<int>(PanelShape::Reach) - 8)) % 255 != 0 ? 1 : 0;
    EXPECT_GT(between, 1);
}

TEST(PanelShape, castsAShadowThatFadesOutBelowItAndBesideIt)
{
    const QImage picture
        = pictureOf(PanelPlace(Panel, {}, Window), { Qt::white, Qt::white, Qt::white, QColor(Qt::black) });
    const int middle = picture.height() / 2;
    const int right = static_cast<int>(PanelShape::Reach) + 200;
    for (int distance = 1; distance < 16; ++distance)
        EXPECT_LT(qAlpha(picture.pixel(right + distance, middle)), qAlpha(picture.pixel(right + distance - 1, middle)))
            << distance;
    EXPECT_GT(qAlpha(picture.pixel(right, middle)), 127);
    EXPECT_GT(qAlpha(picture.pixel(right + 14, middle)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(right + 16, middle)), 0);
    for (int distance = 0; distance < 16; ++distance)
        EXPECT_EQ(
            picture.pixel(right + distance, middle), picture.pixel(picture.width() - 1 - right - distance, middle))
            << distance;
    // The light comes from above: the shadow lies two points lower than the panel.
    const int column = picture.width() / 2;
    for (int row = 18; row < 32; ++row)
        EXPECT_EQ(picture.pixel(column, row), picture.pixel(column, picture.height() - 1 - row + 4)) << row;
}

TEST(PanelShape, changesItsColourEvenlyFromItsTopToItsBottom)
{
    const Colours colours{ Qt::black, QColor(240, 240, 240), Qt::red };
    const QImage picture = pictureOf(PanelPlace(Panel, {}, Window), colours);
    const int reach = static_cast<int>(PanelShape::Reach);
    for (int row = 2; row < 118; ++row)
        for (const int column : { 14, 100, 185 })
            EXPECT_NEAR(qGreen(picture.pixel(reach + column, reach + row)), 2 * row + 1, 1) << row << ' ' << column;
}

TEST(PanelShape, isPaintedAnewAtAnotherPlaceAndInOtherColours)
{
    QQuickWindow window;
    window.setColor(Qt::white);
    auto* const shape = new PanelShape(window.contentItem());
    prepare(*shape, {});
    window.resize(shape->size().toSize());
    window.show();
    const auto shown = [&](const QPointF& place) { return window.grabWindow().pixel(place.toPoint()); };
    const PanelPlace pointing(Panel, AnchorOfEdge[0].second, Window);
    const QPointF arrow(PanelShape::Reach + pointing.arrowTip(), PanelShape::Reach - 5);
    EXPECT_EQ(shown(arrow), qRgb(255, 255, 255));
    shape->setPlace(pointing);
    EXPECT_EQ(shown(arrow), qRgb(0, 0, 0));
    shape->setProperty("topColor", QColor(Qt::red));
    EXPECT_EQ(shown(arrow), qRgb(255, 0, 0));
}

TEST(PanelShape, pointsExactlyToThePlaceOfItsTip)
{
    for (const auto& [edge, anchor] : AnchorOfEdge) {
        const PanelPlace place(Panel, anchor, Window);
        const QImage picture = pictureWithArrowUp(place);
        double weight = 0;
        double moment = 0;
        for (int column = 0; column < picture.width(); ++column) {
            const int alpha = qAlpha(picture.pixel(column, static_cast<int>(PanelShape::Reach) - 6));
            weight += alpha;
            moment += alpha * (column + 0.5);
        }
        EXPECT_NEAR(moment / weight, PanelShape::Reach + place.arrowTip(), 0.1) << edge;
    }
}
