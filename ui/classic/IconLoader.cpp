#include "ui/classic/IconLoader.h"

#include "catalog/records/RepositoryURL.h"
#include "catalog/work/MainThread.h"

#include <algorithm>
#include <utility>

namespace {

// A view's property: the icon that it was last asked to show.
constexpr auto wantedIcon = "wantedIcon";

bool isWebURL(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

// Keeps a body in memory, whatever its status: what counts is whether it is a picture.
class IconReceiver : public http::Receiver
{
public:
    bool begin(int /*status*/) override { return true; }

    bool receive(std::string_view piece) override
    {
        m_body.append(piece.data(), static_cast<qsizetype>(piece.size()));
        return true;
    }

    // Empty unless the body came whole.
    QByteArray takeBody(const http::Outcome& outcome)
    {
        return outcome.isWhole() ? std::exchange(m_body, {}) : QByteArray();
    }

private:
    QByteArray m_body;
};

} // namespace

http::Limits IconLoader::standardDownload()
{
    http::Limits limits;
    limits.inactivity = std::chrono::minutes(1);
    limits.deadline = std::chrono::minutes(1);
    limits.largestBody = std::int64_t(4) * 1024 * 1024;
    return limits;
}

IconLoader::IconLoader(http::Network& network, const Limits& limits, QObject* parent)
    : QObject(parent)
    , m_network(network)
    , m_limits(limits)
    , m_cache(limits.cacheSize)
{
}

IconLoader::~IconLoader()
{
    for (Download& download : m_downloads)
        download.stop.request_stop();
}

void IconLoader::load(const QString& urlString, double scale, kit::ImageView& imageView)
{
    if (imageView.property(wantedIcon) != urlString)
        dropLoadsOf(imageView);
    else if (isLoadingFor(imageView))
        return;
    imageView.setProperty(wantedIcon, urlString);
    const auto url = RepositoryURL::fromString(urlString);
    if (!url)
        return;
    const kit::Image cached = m_cache.image(urlString);
    if (!cached.isNull()) {
        imageView.setImage(cached);
    } else if (isWebURL(url->url())) {
        m_waiting.push_back({ urlString, url->url(), scale, &imageView });
        startWaiting();
    }
}

void IconLoader::dropLoadsOf(const kit::ImageView& imageView)
{
    std::erase_if(m_waiting, [&](const Request& request) { return request.imageView == &imageView; });
    for (Download& download : m_downloads) {
        if (download.request.imageView == &imageView)
            download.stop.request_stop();
    }
}

bool IconLoader::isLoadingFor(const kit::ImageView& imageView) const
{
    const auto isFor = [&](const Request& request) { return request.imageView == &imageView; };
    const auto downloadsFor
        = [&](const Download& download) { return isFor(download.request) && !download.stop.stop_requested(); };
    return std::any_of(m_waiting.begin(), m_waiting.end(), isFor)
        || std::any_of(m_downloads.begin(), m_downloads.end(), downloadsFor);
}

void IconLoader::startWaiting()
{
    while (!m_waiting.empty() && m_downloads.size() < m_limits.mostAtOnce) {
        Request next = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (next.imageView)
            start(std::move(next));
    }
}

void IconLoader::start(Request request)
{
    const auto download = m_downloads.insert(m_downloads.end(), { std::move(request), {} });
    const auto receiver = std::make_shared<IconReceiver>();
    // On the network's thread.
    const auto ended = [self = QPointer<IconLoader>(this), receiver, download](const http::Outcome& outcome) {
        const QByteArray body = receiver->takeBody(outcome);
        postToMainThread<IconLoader>(self, [download, body](IconLoader& loader) { loader.downloaded(download, body); });
    };
    const QByteArray url = download->request.url.toEncoded(QUrl::RemoveFragment);
    m_network.start({ .url = url.toStdString(), .userAgent = {}, .limits = m_limits.download, .authorities = {} },
        receiver, ended, download->stop.get_token());
}

void IconLoader::downloaded(Downloads::iterator download, const QByteArray& body)
{
    const Request request = std::move(download->request);
    m_downloads.erase(download);
    startWaiting();
    if (body.isEmpty())
        Q_EMIT finished(request.urlString);
    else
        decode(body, request);
}

// On another thread: the picture is decoded and goes into the cache, so that drawing never waits for it.
void IconLoader::decode(const QByteArray& body, const Request& request)
{
    m_decoder.post([this, self = QPointer<IconLoader>(this), body, request] {
        const kit::Image image = kit::Image::fromData(body, request.scale);
        if (!image.isNull())
            m_cache.insert(request.urlString, image);
        postToMainThread<IconLoader>(self, [image, request](IconLoader& loader) { loader.show(image, request); });
    });
}

void IconLoader::show(const kit::Image& image, const Request& request)
{
    const bool isWanted = request.imageView && request.imageView->property(wantedIcon) == request.urlString;
    if (!image.isNull() && isWanted)
        request.imageView->setImage(image);
    Q_EMIT finished(request.urlString);
}
