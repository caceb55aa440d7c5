// Precompiled into every library: the Qt headers that nearly every source needs.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDomDocument>
#include <QEvent>
#include <QHash>
#include <QList>
#include <QMap>
#include <QMouseEvent>
#include <QObject>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QTimer>
#include <QVariant>
#include <QVector>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>
