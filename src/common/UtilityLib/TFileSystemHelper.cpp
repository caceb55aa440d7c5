#include "TFileSystemHelper.h"

QString TFileSystemHelper::GetInvalidFileNameString()
{
    QString invalid = QStringLiteral("\\/:*?\"<>|");
    for (ushort control = 0; control < ' '; ++control)
        invalid += QChar(control);
    invalid += QChar(0x7F);
    return invalid;
}
