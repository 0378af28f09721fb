#include "demo/tour/Tour.h"

#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/view/Label.h"

#include <QTextStream>

Tour::Tour(TouchDriver& touch, const QDir& directory)
    : m_touch(touch)
    , m_directory(directory)
    , m_report(directory.filePath(QStringLiteral("tour.txt")))
{
    if (!m_report.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        qFatal("%s cannot be written.", qPrintable(m_report.fileName()));
}

// MARK: the source

void Tour::holdSource()
{
    QFile hold(qEnvironmentVariable("VESK_DEMO_HOLD"));
    if (!hold.open(QIODevice::WriteOnly))
        qFatal("The source cannot be held: %s", qPrintable(hold.errorString()));
}

void Tour::releaseSource()
{
    QFile::remove(qEnvironmentVariable("VESK_DEMO_HOLD"));
}

// MARK: steps

QString Tour::pictureName(const QString& stepName) const
{
    QString words = stepName;
    words.replace(u' ', u'-');
    return m_directory.filePath(QStringLiteral("%1-%2.png").arg(m_steps, 2, 10, QLatin1Char('0')).arg(words));
}

void Tour::step(const QString& name, const std::function<void()>& act)
{
    ++m_steps;
    m_seen.clear();
    m_failures.clear();
    m_picture = pictureName(name);
    m_pictureTaken = false;
    act();
    if (!m_pictureTaken)
        expect(m_touch.grab(m_picture), QStringLiteral("a picture of a window at rest"));
    report(name);
}

void Tour::takePictureNow()
{
    m_pictureTaken = true;
    expect(m_touch.grab(m_picture, TouchDriver::Moment::Now), QStringLiteral("a picture of the moment"));
}

void Tour::report(const QString& name)
{
    const bool isFailed = !m_failures.isEmpty();
    m_failedSteps += isFailed ? 1 : 0;
    const QString number = QStringLiteral("%1").arg(m_steps, 2, 10, QLatin1Char('0'));
    const QString line = isFailed
        ? QStringLiteral("FAILED %1 %2: %3").arg(number, name, m_failures.join(QStringLiteral("; ")))
        : QStringLiteral("ok %1 %2: %3").arg(number, name, m_seen.join(QStringLiteral(", ")));
    m_report.write(line.toUtf8() + '\n');
    m_report.flush();
    QTextStream(stdout) << line << Qt::endl;
}

// MARK: what must hold

bool Tour::expect(bool holds, const QString& what)
{
    if (!holds)
        m_failures.append(QStringLiteral("not so: %1").arg(what));
    return holds;
}

bool Tour::expectText(const QString& seen, const QString& wanted, const QString& where)
{
    if (seen == wanted)
        note(QStringLiteral("%1 \"%2\"").arg(where, seen));
    else
        m_failures.append(QStringLiteral("%1 is \"%2\" and should be \"%3\"").arg(where, seen, wanted));
    return seen == wanted;
}

void Tour::expectTitle(const QString& title)
{
    expectText(m_touch.title(), title, QStringLiteral("title"));
}

void Tour::expectHeader(int section, const QString& text)
{
    expectText(m_touch.headerText(section), text, QStringLiteral("header"));
}

void Tour::expectRow(const kit::IndexPath& row, const QString& text, const QString& detail)
{
    expectText(m_touch.rowText(row), text, QStringLiteral("row"));
    if (!detail.isNull())
        expectText(m_touch.rowDetail(row), detail, QStringLiteral("its detail"));
}

void Tour::expectRowCount(int section, int count)
{
    const int seen = m_touch.table().layout().rowCount(section);
    if (expect(seen == count, QStringLiteral("%1 rows, there are %2").arg(count).arg(seen)))
        note(QStringLiteral("%1 rows").arg(seen));
}

void Tour::expectOnlyRow(const QString& text)
{
    expectRowCount(0, 1);
    expectRow({ 0, 0 }, text);
    const QString title = m_touch.title();
    tapRow({ 0, 0 });
    m_touch.settle();
    expect(m_touch.title() == title && !m_touch.window().presentedAlert(), QStringLiteral("a tap on it does nothing"));
}

void Tour::expectBarButton(const QString& title, Item state)
{
    const QQuickItem* item = m_touch.barButton(title);
    if (!expect(item, QStringLiteral("a bar button \"%1\"").arg(title)))
        return;
    const bool isAsWanted = item->isEnabled() == (state == Item::Enabled);
    const QString word = state == Item::Enabled ? QStringLiteral("enabled") : QStringLiteral("disabled");
    if (expect(isAsWanted, QStringLiteral("\"%1\" is %2").arg(title, word)))
        note(QStringLiteral("\"%1\" %2").arg(title, word));
}

void Tour::expectAlert(const QString& title, const QString& message, const QStringList& buttons)
{
    if (!await([this] { return m_touch.window().presentedAlert(); }, QStringLiteral("an alert")))
        return;
    m_touch.settle();
    const kit::AlertController* alert = m_touch.window().presentedAlert();
    expectText(alert->title(), title, QStringLiteral("alert"));
    expectText(alert->message(), message, QStringLiteral("its message"));
    for (const QString& button : buttons)
        expect(m_touch.alertButton(button), QStringLiteral("a button \"%1\"").arg(button));
    expect(alert->actions().size() == buttons.size(), QStringLiteral("%1 buttons").arg(buttons.size()));
}

void Tour::expectNoAlert()
{
    await([this] { return !m_touch.window().presentedAlert(); }, QStringLiteral("the alert has gone"));
}

bool Tour::await(const std::function<bool()>& condition, const QString& what)
{
    constexpr int LongEnough = 30000;
    return expect(TouchDriver::waitUntil(condition, LongEnough), what);
}

// MARK: what a person does

void Tour::tapTab(const QString& title)
{
    expect(m_touch.tapTab(title), QStringLiteral("a tab \"%1\" to tap").arg(title));
    m_touch.settle();
}

void Tour::tapBarButton(const QString& title)
{
    expect(m_touch.tapBarButton(title), QStringLiteral("a bar button \"%1\" to tap").arg(title));
}

void Tour::tapAlertButton(const QString& title)
{
    expect(m_touch.tapAlertButton(title), QStringLiteral("an alert's button \"%1\" to tap").arg(title));
    expectNoAlert();
}

void Tour::tapRow(const kit::IndexPath& row)
{
    expect(m_touch.tapRow(row), QStringLiteral("a row %1 of section %2 to tap").arg(row.row).arg(row.section));
}

void Tour::openRow(int section, const QString& text, const QString& titleOfScreen)
{
    if (!expect(m_touch.scrollToRow(section, text), QStringLiteral("a row \"%1\"").arg(text)))
        return;
    tapRow(m_touch.rowWithText(section, text));
    await([&] { return m_touch.title() == titleOfScreen && !m_touch.stack().isTransitioning(); },
        QStringLiteral("the screen \"%1\"").arg(titleOfScreen));
}

void Tour::goBackTo(const QString& title)
{
    tapBarButton(QStringLiteral("Back"));
    await([&] { return m_touch.title() == title && !m_touch.stack().isTransitioning(); },
        QStringLiteral("the screen \"%1\" again").arg(title));
}
