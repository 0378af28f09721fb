#pragma once

#include "tests/support/ui/TouchDriver.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <functional>

// One walk through the program: numbered steps, each of them something done, a look at what came of it, a picture and a
// line of the report. What a step says it saw is what the screen held, not what was hoped for.
class Tour
{
public:
    // Pictures and tour.txt go to the directory, which is there.
    Tour(TouchDriver& touch, const QDir& directory);

    // Runs the step, takes its picture and writes its line. The name becomes part of the picture's.
    void step(const QString& name, const std::function<void()>& act);
    // To be called once within a step when its picture is of a moment that does not last.
    void takePictureNow();

    // What must hold in the step that runs; a difference is noted in its line and fails it.
    bool expect(bool holds, const QString& what);
    bool expectText(const QString& seen, const QString& wanted, const QString& where);
    void expectTitle(const QString& title);
    void expectHeader(int section, const QString& text);
    void expectRow(const kit::IndexPath& row, const QString& text, const QString& detail = {});
    void expectRowCount(int section, int count);
    // The table's only row, which does nothing.
    void expectOnlyRow(const QString& text);
    enum class Item { Enabled, Disabled };
    void expectBarButton(const QString& title, Item state);
    void expectAlert(const QString& title, const QString& message, const QStringList& buttons);
    void expectNoAlert();
    // Waits for it; false, and a failed step, when it does not come.
    bool await(const std::function<bool()>& condition, const QString& what);

    // What a person does, as part of a step: a thing that is not there fails it.
    void tapTab(const QString& title);
    void tapBarButton(const QString& title);
    void tapAlertButton(const QString& title);
    void tapRow(const kit::IndexPath& row);
    // Scrolls until the row with that text shows, then taps it and waits for its screen.
    void openRow(int section, const QString& text, const QString& titleOfScreen);
    void goBackTo(const QString& title);

    // Between the two the demo source does not answer for its index, so that what shows during a refresh stays.
    static void holdSource();
    static void releaseSource();

    TouchDriver& touch() { return m_touch; }
    // Adds to what the step says it saw.
    void note(const QString& seen) { m_seen.append(seen); }
    bool succeeded() const { return m_failedSteps == 0 && m_steps > 0; }
    int steps() const { return m_steps; }
    int failedSteps() const { return m_failedSteps; }

private:
    QString pictureName(const QString& stepName) const;
    void report(const QString& name);

    TouchDriver& m_touch;
    QDir m_directory;
    QFile m_report;
    QStringList m_seen;
    QStringList m_failures;
    QString m_picture;
    bool m_pictureTaken = false;
    int m_steps = 0;
    int m_failedSteps = 0;
};
