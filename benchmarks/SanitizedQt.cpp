// What the thread sanitizer has to know of a Qt that was not built for it, beside the locks of LockProbe.cpp.
// Each function stands between the toolkit's classes and Qt's function of the same name.

#include <QCoreApplication>
#include <QMetaObject>
#include <QString>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

// Of the sanitizer's runtime, without a header.
extern "C"
{
    void AnnotateIgnoreWritesBegin(char const* file, int line);
    void AnnotateIgnoreWritesEnd(char const* file, int line);
}

// What one thread hands to the event loop of another is handed over under a lock within Qt; the other side of
// this stands where the program delivers its events. Within, Qt counts who still has the slot, unseen by the
// sanitizer: the last deletes it, and that may be either thread.
bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot, Qt::ConnectionType type,
                                   void* result)
{
    using TInvoke = bool(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*);
    static auto* const next = reinterpret_cast<TInvoke*>(dlsym(
        RTLD_NEXT,
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv"));
    __tsan_release(qApp);
    AnnotateIgnoreWritesBegin(__FILE__, __LINE__);
    bool const isDone = next(object, slot, type, result);
    AnnotateIgnoreWritesEnd(__FILE__, __LINE__);
    return isDone;
}

// Qt's own counts the references of the letters where the sanitizer does not see it; this one does the same
// with what stands in Qt's headers.
QString& QString::operator=(QString const& other) noexcept
{
    QString copy(other);
    swap(copy);
    return *this;
}
