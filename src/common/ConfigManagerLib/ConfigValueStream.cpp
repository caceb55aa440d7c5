#include "ConfigValueStream.h"

#include <QDataStream>
#include <QIODevice>

#include <new>

namespace
{
// Never to be changed: the files of every console in the field have this one.
constexpr QDataStream::Version STREAM_VERSION = QDataStream::Qt_5_15;
// Far beyond any setting, far below the depth at which the recursion in Qt overruns the stack.
constexpr int MAX_NESTING = 64;

enum EContainer
{
    CONTAINER_NONE, // Qt reads it in bounded pieces
    CONTAINER_FLAT, // a count, then elements of one plain type
    CONTAINER_LIST, // a count, then values
    CONTAINER_MAP   // a count, then pairs of key and value
};

EContainer ContainerOf(quint32 type)
{
    switch (type)
    {
    case QMetaType::QVariantList:
        return CONTAINER_LIST;
    case QMetaType::QVariantMap:
    case QMetaType::QVariantHash:
        return CONTAINER_MAP;
    case QMetaType::QStringList:
    case QMetaType::QByteArrayList:
    case QMetaType::QPolygon:
    case QMetaType::QPolygonF:
        return CONTAINER_FLAT;
    default:
        return CONTAINER_NONE;
    }
}

// Reads the head of a value: its type by number or, where a module made it, by name. False for a type that
// this program does not know.
bool ReadHead(QDataStream& stream, quint32& type)
{
    qint8 isNull = 0;
    stream >> type >> isNull;
    if (type < QMetaType::User)
        return type == QMetaType::UnknownType ||
               (type != QMetaType::Void && QMetaType::isRegistered(static_cast<int>(type)));
    QByteArray name;
    stream >> name;
    return type == QMetaType::User && QMetaType::type(name) != QMetaType::UnknownType;
}

bool IsSaneContainer(QDataStream& stream, EContainer container, int depth);

// Walks over one streamed value. Qt reserves memory for as many elements as the stream promises, recurses as
// deep as it nests and complains aloud of types it does not know, so all three are looked at before Qt may
// load it.
bool IsSaneValue(QDataStream& stream, int depth)
{
    qint64 const start = stream.device()->pos();
    quint32 type = 0;
    if (!ReadHead(stream, type) || stream.status() != QDataStream::Ok)
        return false;
    EContainer const container = ContainerOf(type);
    if (container != CONTAINER_NONE && !IsSaneContainer(stream, container, depth))
        return false;
    if (container == CONTAINER_LIST || container == CONTAINER_MAP || depth == 0)
        return true;
    QVariant leaf;
    return stream.device()->seek(start) && (stream >> leaf).status() == QDataStream::Ok;
}

bool IsSaneContainer(QDataStream& stream, EContainer container, int depth)
{
    quint32 count = 0;
    stream >> count;
    // The smallest element has one byte.
    if (depth >= MAX_NESTING || stream.status() != QDataStream::Ok ||
        count > stream.device()->bytesAvailable())
        return false;
    for (quint32 i = 0; i < count && container != CONTAINER_FLAT; ++i)
    {
        QString key;
        if (container == CONTAINER_MAP)
            stream >> key;
        if (!IsSaneValue(stream, depth + 1))
            return false;
    }
    return true;
}

QVariant Load(QByteArray const& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(STREAM_VERSION);
    if (!IsSaneValue(stream, 0) || !stream.device()->seek(0))
        return {};
    QVariant value;
    stream >> value;
    return stream.status() == QDataStream::Ok && stream.atEnd() ? value : QVariant();
}
} // namespace

QByteArray ConfigValueToBytes(QVariant const& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(STREAM_VERSION);
    stream << value;
    return ConfigValueFromBytes(bytes).userType() == value.userType() ? bytes : QByteArray();
}

QVariant ConfigValueFromBytes(QByteArray const& bytes)
{
    try
    {
        return Load(bytes);
    }
    catch (std::bad_alloc const&)
    {
        return {};
    }
}
