#pragma once

#include <QObject>
#include <QtTest>

#include <map>

using TMakeTest = QObject* (*)();

/// The test classes of one binary by name; filled by COMMONUI_TEST at static initialisation.
std::map<QByteArray, TMakeTest>& TestClasses();

/// Adds a class to TestClasses().
bool RegisterTestClass(char const* name, TMakeTest make);

template<typename T>
QObject* MakeTest()
{
    return new T;
}

/// Registers a test class under its own name, so that "test-room Class" runs it.
#define COMMONUI_TEST(Class)                                                                                 \
    static bool const registered##Class = RegisterTestClass(#Class, &MakeTest<Class>);
