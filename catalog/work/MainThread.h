#pragma once

#include <QCoreApplication>
#include <QPointer>

#include <functional>
#include <utility>

// Safe on any thread: has the main thread do a step with an object that lives there, in a later turn of its loop,
// unless the object is gone by then. The application, which outlives the other threads, takes the step; only the main
// thread looks whether the object is still there.
template <typename Object> void postToMainThread(const QPointer<Object>& object, std::function<void(Object&)> step)
{
    const auto run = [object, step = std::move(step)] {
        if (object)
            step(*object);
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), run, Qt::QueuedConnection);
}
