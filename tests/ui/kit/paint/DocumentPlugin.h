#pragma once

#include <QIODevice>
#include <QImageIOHandler>
#include <QImageIOPlugin>

// Reads any document as a red picture of ten pixels a side.
class DocumentReader : public QImageIOHandler
{
public:
    bool canRead() const override { return true; }
    bool read(QImage* image) override
    {
        *image = QImage(10, 10, QImage::Format_ARGB32);
        image->fill(Qt::red);
        return true;
    }
    bool supportsOption(ImageOption option) const override { return option == Size; }
    QVariant option(ImageOption option) const override { return option == Size ? QVariant(QSize(10, 10)) : QVariant(); }
};

// What may be installed on a person's machine: a reader of drawings and of printed pages, known by how they begin.
class DocumentPlugin : public QImageIOPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QImageIOHandlerFactoryInterface" FILE "document_plugin.json")

public:
    Capabilities capabilities(QIODevice* device, const QByteArray& format) const override
    {
        return !format.isEmpty() || formatOf(device).isEmpty() ? Capabilities() : CanRead;
    }
    QImageIOHandler* create(QIODevice* device, const QByteArray& /*format*/) const override
    {
        auto* const reader = new DocumentReader;
        reader->setDevice(device);
        reader->setFormat(formatOf(device));
        return reader;
    }

private:
    static QByteArray formatOf(QIODevice* device)
    {
        const QByteArray begin = device ? device->peek(5) : QByteArray();
        return begin == "<?xml" ? "svg" : begin == "%PDF-" ? "pdf" : "";
    }
};
