#pragma once

#include "ui/kit/navigation/ViewController.h"

#include <QStringList>

#include <functional>
#include <utility>

// A screen that writes the moments of its life into a list, each as "name moment".
class LifeRecorder : public kit::ViewController
{
public:
    LifeRecorder(const QString& name, QStringList& moments)
        : m_moments(moments)
    {
        setObjectName(name);
        setTitle(name);
    }

    void viewDidLoad() override { note(QStringLiteral("loaded")); }
    void viewWillAppear() override
    {
        note(QStringLiteral("will appear"));
        if (const auto now = std::exchange(atWillAppear, {}))
            now();
    }
    void viewDidAppear() override { note(QStringLiteral("did appear")); }
    void viewWillDisappear() override { note(QStringLiteral("will disappear")); }
    void viewDidDisappear() override
    {
        note(QStringLiteral("did disappear"));
        if (const auto now = std::exchange(atDidDisappear, {}))
            now();
    }

    // What the screen does, once, in such a moment.
    std::function<void()> atWillAppear;
    std::function<void()> atDidDisappear;

private:
    void note(const QString& moment) { m_moments.append(objectName() + u' ' + moment); }

    QStringList& m_moments;
};

// What a list of moments holds, and empties it.
inline QStringList taken(QStringList& moments)
{
    return std::exchange(moments, {});
}
