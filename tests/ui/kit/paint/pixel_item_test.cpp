#include "ui/kit/paint/PixelItem.h"

#include <QQuickWindow>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

// A square of one colour that counts how often it is painted.
class Square : public kit::PixelItem
{
public:
    explicit Square(QQuickItem* parent)
        : PixelItem(parent)
    {
        setSize({ 20, 20 });
    }

    void setColor(const QColor& color)
    {
        m_color = color;
        update();
    }
    int paintings() const { return m_paintings; }

protected:
    QImage painted(const QSize& pixelSize, double /*scale*/) const override
    {
        ++m_paintings;
        QImage picture(pixelSize, QImage::Format_ARGB32_Premultiplied);
        picture.fill(m_color);
        return picture;
    }

private:
    QColor m_color = Qt::red;
    mutable int m_paintings = 0;
};

class PixelItemTest : public testing::Test
{
protected:
    PixelItemTest()
    {
        window.resize(20, 20);
        square = new Square(window.contentItem());
    }

    QColor shown()
    {
        window.show();
        return window.grabWindow().pixelColor(10, 10);
    }

    QQuickWindow window;
    Square* square;
};

} // namespace

TEST_F(PixelItemTest, isNotPaintedWhileItIsHidden)
{
    square->setVisible(false);
    shown();
    EXPECT_EQ(square->paintings(), 0);
}

TEST_F(PixelItemTest, isPaintedWhenItIsFirstSeen)
{
    square->setVisible(false);
    shown();
    square->setVisible(true);
    EXPECT_EQ(shown(), QColor(Qt::red));
}

TEST_F(PixelItemTest, showsWhatChangedWhileItWasHidden)
{
    shown();
    square->setVisible(false);
    square->setColor(Qt::blue);
    shown();
    square->setVisible(true);
    EXPECT_EQ(shown(), QColor(Qt::blue));
}

TEST_F(PixelItemTest, isNotPaintedAgainByBeingHiddenForAWhile)
{
    shown();
    square->setVisible(false);
    shown();
    square->setVisible(true);
    EXPECT_EQ(shown(), QColor(Qt::red));
    EXPECT_EQ(square->paintings(), 1);
}

TEST_F(PixelItemTest, isPaintedAgainInItsNewSizeButNotAtAnotherPlace)
{
    shown();
    square->setPosition({ 5, 5 });
    EXPECT_EQ(shown(), QColor(Qt::red));
    EXPECT_EQ(square->paintings(), 1);
    square->setPosition({ 0, 0 });
    square->setSize({ 9, 9 });
    EXPECT_NE(shown(), QColor(Qt::red));
    EXPECT_EQ(square->paintings(), 2);
}

TEST_F(PixelItemTest, tellsWhichWindowItIsIn)
{
    QQuickWindow other;
    const QSignalSpy told(square, &QQuickItem::windowChanged);
    square->setParentItem(other.contentItem());
    EXPECT_GE(told.count(), 1);
    EXPECT_EQ(square->window(), &other);
    square->setParentItem(window.contentItem());
}

TEST_F(PixelItemTest, tellsItsNewSize)
{
    const QSignalSpy told(square, &QQuickItem::widthChanged);
    square->setWidth(30);
    EXPECT_EQ(told.count(), 1);
}

TEST_F(PixelItemTest, isGoneWhenItHasNoSizeAnyMore)
{
    ASSERT_EQ(shown(), QColor(Qt::red));
    square->setHeight(0);
    EXPECT_NE(shown(), QColor(Qt::red));
    square->setHeight(20);
    EXPECT_EQ(shown(), QColor(Qt::red));
}
