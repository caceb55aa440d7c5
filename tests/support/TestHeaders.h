// Precompiled once and used by every test: the Qt headers that nearly all of them need.
#pragma once

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>
#include <QWidget>

#include <algorithm>
#include <functional>
#include <memory>
