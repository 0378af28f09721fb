#include "ui/classic/IconLoader.h"

#include "catalog/records/RepositoryURL.h"

namespace {

// A view's property: the icon that it was last asked to show.
constexpr auto wantedIcon = "wantedIcon";

bool isWebURL(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

} // namespace

IconLoader::IconLoader(IconTransport& transport, const Limits& limits, QObject* parent)
    : QObject(parent)
    , m_cache(limits.cacheSize)
    , m_queue(transport, limits.queue)
{
    m_decoders.setMaxThreadCount(1);
}

IconLoader::~IconLoader()
{
    // The pool itself waits for the decoder that is at work.
    m_decoders.clear();
}

void IconLoader::load(const QString& urlString, double scale, kit::ImageView& imageView)
{
    imageView.setProperty(wantedIcon, urlString);
    const auto url = RepositoryURL::fromString(urlString);
    if (!url)
        return;
    const kit::Image cached = m_cache.image(urlString);
    if (!cached.isNull())
        imageView.setImage(cached);
    else if (isWebURL(url->url()))
        download(url->url(), { urlString, scale, &imageView });
}

bool IconLoader::isWanted(const Request& request)
{
    return request.imageView && request.imageView->property(wantedIcon) == request.urlString;
}

void IconLoader::download(const QUrl& url, const Request& request)
{
    m_queue.add({ .url = url,
        .requester = request.imageView.data(),
        .isWanted = [request] { return isWanted(request); },
        .completion = [this, request](const QByteArray& body) { decode(body, request); } });
}

// On another thread: the picture is decoded and goes into the cache, so that drawing never waits for it.
void IconLoader::decode(const QByteArray& body, const Request& request)
{
    m_decoders.start([this, body, request] {
        const kit::Image image = kit::Image::fromData(body, request.scale);
        if (!image.isNull())
            m_cache.insert(request.urlString, image);
        QMetaObject::invokeMethod(
            this, [this, image, request] { show(image, request); }, Qt::QueuedConnection);
    });
}

void IconLoader::show(const kit::Image& image, const Request& request)
{
    if (!image.isNull() && isWanted(request))
        request.imageView->setImage(image);
    Q_EMIT finished(request.urlString);
}
