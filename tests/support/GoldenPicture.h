#pragma once

#include <QImage>
#include <QString>
#include <QtTest>

/// What keeps \a actual from being the picture in the file \a path, pixel for pixel; empty when it is. A
/// picture that is missing is a fault as well.
///
/// A fault leaves one sheet in the folder "pictures" of the build tree, named after \a sheet: expected,
/// actual and difference side by side, with each differing pixel in red. With the environment variable
/// COMMONUI_RENEW_PICTURES set, "./test --renew-pictures", the file is written anew instead.
QString GoldenPictureFault(QImage const& actual, QString const& path, QString const& sheet);

/// Fails the test unless \a image is the picture golden/NAME.png of the test's room.
#define COMPARE_PICTURE(image, name)                                                                         \
    do                                                                                                       \
    {                                                                                                        \
        QString const pictureFault =                                                                         \
            GoldenPictureFault((image), QStringLiteral(TEST_SOURCE_DIR "/golden/" name ".png"),              \
                               QString::fromLatin1(metaObject()->className()) + QStringLiteral("-" name));   \
        QVERIFY2(pictureFault.isEmpty(), qPrintable(pictureFault));                                          \
    } while (false)
