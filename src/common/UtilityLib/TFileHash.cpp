#include "TFileHash.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <vector>

namespace
{
constexpr char SALT[] = "CommonUI console file 1\n";
constexpr int SALT_LENGTH = sizeof SALT - 1;
constexpr qint64 PIECE_BYTES = 64 * 1024;
} // namespace

QByteArray TFileHash::CalculateFileSaltedSHA1(QString const& path)
{
    // A pipe would block the caller for ever and a device may have no end.
    if (!QFileInfo(path).isFile())
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(SALT, SALT_LENGTH);
    std::vector<char> piece(PIECE_BYTES);
    qint64 length = 0;
    while ((length = file.read(piece.data(), PIECE_BYTES)) > 0)
        hash.addData(piece.data(), static_cast<int>(length));
    return length < 0 ? QByteArray() : hash.result();
}
