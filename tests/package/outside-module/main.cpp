#include <MorvaneID.h>
#include <TFileHash.h>

#include <QFile>

#include <cstdio>

// Prints the id of the module's first view and the digest of its own file.
int main(int, char** argv)
{
    KVN::MorvaneID const view(QUuid(QStringLiteral("{6a1f3c52-8d0e-4b77-9c35-2f60e1d4a8b9}")), 1);
    QByteArray const digest = TFileHash::CalculateFileSaltedSHA1(QFile::decodeName(argv[0]));
    std::printf("%s %s\n", qPrintable(view.ToString()), digest.toHex().constData());
    bool const roundTrip = KVN::MorvaneID::FromString(view.ToString()) == view;
    return roundTrip && digest.size() == 20 ? 0 : 1;
}
