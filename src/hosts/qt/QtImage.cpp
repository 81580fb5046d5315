#include "QtImage.h"
#include <QBuffer>
#include <QImageReader>

namespace velmorath {

namespace {

const char* format(std::string_view bytes)
{
    if (bytes.starts_with("\x89PNG"))
        return "png";
    return bytes.starts_with("\xFF\xD8") ? "jpeg" : nullptr;
}

} // namespace

QImage QtImage::decoded(std::string_view bytes)
{
    const char* const name = format(bytes);
    if (!name)
        return {};
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer, name);
    // Else Qt loads every reader of pictures that the machine has.
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    return reader.read();
}

} // namespace velmorath
