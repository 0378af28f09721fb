#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace kit {

// How fast a finger moves, in points a second, by where it was in the last tenth of a second.
class DragSpeed : public QObject
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit DragSpeed(QObject* parent = nullptr);

    Q_INVOKABLE void begin() { m_samples.clear(); }
    Q_INVOKABLE void move(double place) { moveAt(place, m_clock.elapsed()); }
    // 0 once the finger rests.
    Q_INVOKABLE double speed() const { return speedAt(m_clock.elapsed()); }

    // The same at a time in milliseconds.
    void moveAt(double place, qint64 time);
    double speedAt(qint64 time) const;

private:
    struct Sample
    {
        double place;
        qint64 time;
    };

    std::vector<Sample> m_samples;
    QElapsedTimer m_clock;
};

} // namespace kit
