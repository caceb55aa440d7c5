// Precompiled into every library: the Qt headers that nearly every source needs, of the modules it links.
#pragma once

#include <functional>
#include <memory>
#include <QEvent>
#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QTimer>
#include <QVariant>
#include <QVector>
#include <vector>

#ifdef QT_XML_LIB
#include <QDomDocument>
#endif

#ifdef QT_WIDGETS_LIB
#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QWidget>
#endif
