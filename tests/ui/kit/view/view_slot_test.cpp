#include "ui/kit/view/ViewSlot.h"

#include "ui/kit/view/ImageView.h"
#include "ui/kit/view/Label.h"
#include "ui/kit/view/SubviewsItem.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

namespace {

void deleteWhatIsToGo()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A slot and a list of subviews, in an engine that can draw them.
class DrawnViews : public testing::Test
{
protected:
    DrawnViews()
    {
        label.setText(QStringLiteral("Text"));
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlEngine::setContextForObject(&slot, engine.rootContext());
        QQmlEngine::setContextForObject(&list, engine.rootContext());
    }

    // What the slot draws now.
    QQuickItem* drawn() const
    {
        for (QQuickItem* item : slot.childItems())
            if (item->isVisible())
                return item;
        return nullptr;
    }
    static QObject* viewOf(const QQuickItem* item) { return item->property("view").value<QObject*>(); }
    // The views that the list draws, from the lowest to the uppermost.
    QList<QObject*> drawnByList() const
    {
        QList<QObject*> views;
        for (const QQuickItem* place : list.childItems())
            for (const QQuickItem* item : place->childItems())
                if (item->isVisible())
                    views.append(viewOf(item));
        return views;
    }

    QQmlEngine engine;
    kit::View view;
    kit::Label label;
    kit::ViewSlot slot;
    kit::SubviewsItem list;
};

} // namespace

TEST_F(DrawnViews, areDrawnByTheItemOfTheirKind)
{
    const QSignalSpy changed(&slot, &kit::ViewSlot::viewChanged);
    slot.setView(&view);
    ASSERT_NE(drawn(), nullptr);
    EXPECT_EQ(viewOf(drawn()), &view);
    EXPECT_EQ(slot.view(), &view);
    slot.setView(&label);
    ASSERT_NE(drawn(), nullptr);
    EXPECT_EQ(viewOf(drawn()), &label);
    EXPECT_TRUE(QLatin1String(drawn()->metaObject()->className()).startsWith(QLatin1String("LabelView")));
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(DrawnViews, stayDrawnByTheSameItemWhenTheyAreSetAgain)
{
    slot.setView(&view);
    const QQuickItem* const before = drawn();
    slot.setView(&view);
    EXPECT_EQ(drawn(), before);
}

TEST_F(DrawnViews, areGoneAtOnceAndTheirItemALittleLater)
{
    slot.setView(&view);
    const QPointer<QQuickItem> item(drawn());
    slot.setView(nullptr);
    EXPECT_EQ(drawn(), nullptr);
    EXPECT_FALSE(item.isNull()) << "it may be the item whose touch this is";
    deleteWhatIsToGo();
    EXPECT_TRUE(item.isNull());
}

TEST_F(DrawnViews, areDrawnInTheOrderOfTheirList)
{
    auto* const first = new kit::View;
    auto* const second = new kit::ImageView(kit::Image::named(QStringLiteral("Homepage")));
    auto* const third = new kit::View;
    view.addSubview(first);
    view.addSubview(second);
    const QSignalSpy changed(&list, &kit::SubviewsItem::modelChanged);
    list.setModel(view.subviewModel());
    EXPECT_EQ(changed.count(), 1);
    static_cast<QQmlParserStatus&>(list).componentComplete();
    EXPECT_EQ(drawnByList(), (QList<QObject*>{ first, second }));
    view.addSubview(third);
    EXPECT_EQ(drawnByList(), (QList<QObject*>{ first, second, third }));
    view.addSubview(first);
    EXPECT_EQ(drawnByList(), (QList<QObject*>{ second, third, first })) << "the last one is the uppermost";
}

TEST_F(DrawnViews, leaveNothingBehindInTheirList)
{
    list.setModel(view.subviewModel());
    static_cast<QQmlParserStatus&>(list).componentComplete();
    const auto subview = std::make_unique<kit::View>();
    for (int time = 0; time < 2; ++time) {
        view.addSubview(subview.get());
        EXPECT_EQ(drawnByList(), QList<QObject*>{ subview.get() });
        subview->removeFromSuperview();
        EXPECT_EQ(drawnByList(), QList<QObject*>());
        deleteWhatIsToGo();
        EXPECT_TRUE(list.childItems().isEmpty());
    }
}

TEST_F(DrawnViews, areNoneWithoutAList)
{
    static_cast<QQmlParserStatus&>(list).componentComplete();
    EXPECT_TRUE(list.childItems().isEmpty());
}

TEST_F(DrawnViews, areDrawnOnceByASlotThatIsMadeWithThem)
{
    auto& status = static_cast<QQmlParserStatus&>(slot);
    status.classBegin();
    slot.setView(&view);
    EXPECT_EQ(drawn(), nullptr) << "the slot may not have its size yet";
    status.componentComplete();
    ASSERT_EQ(slot.childItems().size(), 1);
    EXPECT_EQ(viewOf(drawn()), &view);
}
