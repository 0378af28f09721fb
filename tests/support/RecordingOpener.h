#pragma once

#include "actions/URLOpener.h"

#include <QDateTime>
#include <QStringList>
#include <QThread>

#include <optional>
#include <utility>
#include <vector>

// What a test sees of an opener: which URLs it was asked about and which it opened, in order.
struct OpenerRecord
{
    struct Opened
    {
        QString url;
        QDateTime time;
        QThread* thread;
    };

    QStringList asked;
    std::vector<Opened> opened;

    QStringList openedURLs() const
    {
        QStringList urls;
        for (const Opened& one : opened)
            urls.append(one.url);
        return urls;
    }
};

// Opens nothing and only writes down what it is asked. It has a handler for every URL, or for those of the schemes it
// is given. The record must outlive it.
class RecordingOpener : public URLOpener
{
public:
    explicit RecordingOpener(OpenerRecord& record, std::optional<QStringList> schemes = std::nullopt)
        : m_record(record)
        , m_schemes(std::move(schemes))
    {
    }

    bool canOpenURL(const QString& url) override
    {
        m_record.asked.append(url);
        return !m_schemes || m_schemes->contains(url.section(u':', 0, 0));
    }
    void openURL(const QString& url) override
    {
        m_record.opened.push_back({ url, QDateTime::currentDateTimeUtc(), QThread::currentThread() });
    }

private:
    OpenerRecord& m_record;
    std::optional<QStringList> m_schemes;
};
