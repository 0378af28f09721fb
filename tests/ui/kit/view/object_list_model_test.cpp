#include "ui/kit/view/ObjectListModel.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

// A list of two objects.
class ObjectListModelTest : public testing::Test
{
protected:
    ObjectListModelTest()
    {
        model.append(&first);
        model.append(&second);
    }

    QObject first;
    QObject second;
    kit::ObjectListModel model;
};

} // namespace

TEST_F(ObjectListModelTest, holdsItsObjectsInTheirOrder)
{
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.data(model.index(0), Qt::UserRole).value<QObject*>(), &first);
    EXPECT_EQ(model.data(model.index(1), Qt::UserRole).value<QObject*>(), &second);
    EXPECT_EQ(model.rowCount(model.index(0)), 0) << "it is no tree";
}

TEST_F(ObjectListModelTest, hasNothingAtPlacesThatItDoesNotHave)
{
    const QModelIndex last = model.index(1);
    model.remove(&first);
    EXPECT_FALSE(model.data(last, Qt::UserRole).isValid());
    EXPECT_FALSE(model.data({}, Qt::UserRole).isValid());
    EXPECT_FALSE(model.data(model.index(0), Qt::DisplayRole).isValid());
}

TEST_F(ObjectListModelTest, tellsOfWhatComesAndGoesOnceItHas)
{
    const QSignalSpy came(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy goes(&model, &QAbstractItemModel::rowsAboutToBeRemoved);
    const QSignalSpy went(&model, &QAbstractItemModel::rowsRemoved);
    QObject third;
    model.append(&third);
    ASSERT_EQ(came.count(), 1);
    EXPECT_EQ(came[0][1], 2);
    EXPECT_EQ(came[0][2], 2);
    model.remove(&first);
    ASSERT_EQ(went.count(), 1);
    EXPECT_EQ(went[0][1], 0);
    EXPECT_EQ(went[0], goes[0]);
    EXPECT_EQ(model.objects(), (QList<QObject*>{ &second, &third }));
}

TEST_F(ObjectListModelTest, takesNothingAwayThatItDoesNotHold)
{
    const QSignalSpy went(&model, &QAbstractItemModel::rowsRemoved);
    QObject stranger;
    model.remove(&stranger);
    EXPECT_EQ(went.count(), 0);
    EXPECT_EQ(model.rowCount(), 2);
}
