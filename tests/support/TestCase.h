#pragma once

#include <QObject>
#include <QtTest>

#include <functional>
#include <map>

/// The test classes of one binary by name; filled by COMMONUI_TEST at static initialisation.
std::map<QByteArray, std::function<QObject*()>>& TestClasses();

/// Registers a test class under its own name, so that "test-room Class" runs it.
#define COMMONUI_TEST(Class)                                                                                 \
    static bool const registered##Class = (                                                                  \
        TestClasses()[#Class] = []() -> QObject* { return new Class; }, true);
