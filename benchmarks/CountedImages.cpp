#include "benchmarks/CountedImages.h"

#include <QCoreApplication>
#include <QImage>
#include <QImageIOPlugin>
#include <QThread>
#include <QtPlugin>

#include <atomic>

namespace {

constexpr QSize pictureSize(60, 60);
const QByteArray formatName = "counted";

std::atomic<int>& onMainThread()
{
    static std::atomic<int> count = 0;
    return count;
}

std::atomic<int>& elsewhere()
{
    static std::atomic<int> count = 0;
    return count;
}

class CountingHandler : public QImageIOHandler
{
public:
    bool canRead() const override { return device()->peek(formatName.size()) == formatName; }
    bool read(QImage* image) override
    {
        ++(QThread::currentThread() == QCoreApplication::instance()->thread() ? onMainThread() : elsewhere());
        const QByteArray body = device()->readAll();
        *image = QImage(pictureSize, QImage::Format_ARGB32_Premultiplied);
        image->fill(QColor::fromHsv(body.mid(formatName.size()).toInt() % 360, 255, 255));
        return true;
    }
    bool supportsOption(ImageOption option) const override { return option == Size; }
    QVariant option(ImageOption option) const override { return option == Size ? QVariant(pictureSize) : QVariant(); }
};

} // namespace

class CountedImagesPlugin : public QImageIOPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "CountedImages.json")

public:
    Capabilities capabilities(QIODevice* device, const QByteArray& name) const override
    {
        const bool isOurs
            = name == formatName || (name.isEmpty() && device && device->peek(formatName.size()) == formatName);
        return isOurs ? CanRead : Capabilities();
    }
    QImageIOHandler* create(QIODevice* device, const QByteArray& /*name*/) const override
    {
        auto* const handler = new CountingHandler;
        handler->setDevice(device);
        handler->setFormat(formatName);
        return handler;
    }
};

Q_IMPORT_PLUGIN(CountedImagesPlugin)

QByteArray CountedImages::encoded(int number)
{
    return formatName + QByteArray::number(number);
}

int CountedImages::decodedOnMainThread()
{
    return onMainThread();
}

int CountedImages::decodedElsewhere()
{
    return elsewhere();
}

#include "CountedImages.moc"
