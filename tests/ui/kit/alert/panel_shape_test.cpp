#include "ui/kit/alert/PanelShape.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace {

using kit::PanelPlace;
using kit::PanelShape;

constexpr QSizeF Panel(200, 120);
constexpr QSizeF Window(800, 600);

// The panel beside that anchor, in one colour without a shadow, turned so that its arrow points up.
QImage pictureWithArrowUp(const PanelPlace& place)
{
    const double reach = PanelShape::Reach;
    PanelShape shape;
    shape.setSize(Panel + QSizeF(2 * reach, 2 * reach));
    for (const char* colour : { "topColor", "bottomColor", "edgeColor" })
        shape.setProperty(colour, QColor(Qt::black));
    shape.setProperty("shadowColor", QColor(Qt::transparent));
    shape.setPlace(place);
    QImage picture(shape.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    shape.paint(&painter);
    painter.end();
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
