#pragma once

#include "CommonUILibExport.h"

#include <QString>
#include <QVector>

namespace EditContainerAssertion
{
// Named in the message of a failed assertion, by which service files reports of the same fault together. They
// stay what they are when lines of this file move.
constexpr int LINE_OF_AT = 29;
constexpr int LINE_OF_SET_AT = 54;

/// Ends the program with a message for a negative \a index, in every build.
COMMONUILIB_EXPORT void RequireIndex(int index, int line);
} // namespace EditContainerAssertion

/// A small sparse array: it holds what was set, and every index beyond has the default. A negative index is a
/// fault of the program, which ends with the assertion "index >= 0".
template<typename T>
class EditContainer
{
public:
    EditContainer() = default;
    virtual ~EditContainer() = default;

    /// The element, or the default at or past the end; never makes the container larger.
    T at(int index) const
    {
        EditContainerAssertion::RequireIndex(index, EditContainerAssertion::LINE_OF_AT);
        return index < m_Elements.size() ? m_Elements.at(index) : Default();
    }

    /// Sets an element. What lies between the end and \a index is filled with defaults, all of which take
    /// memory: it is meant for the rows of a list, and an index near the largest integer ends the program.
    void setAt(int index, T const& value)
    {
        EditContainerAssertion::RequireIndex(index, EditContainerAssertion::LINE_OF_SET_AT);
        // The value may be an element that moves.
        T const kept = value;
        while (m_Elements.size() < index)
            m_Elements.append(Default());
        if (m_Elements.size() == index)
            m_Elements.append(kept);
        else
            m_Elements[index] = kept;
    }

protected:
    EditContainer(EditContainer const&) = default;
    EditContainer(EditContainer&&) noexcept = default;
    EditContainer& operator=(EditContainer const&) = default;
    EditContainer& operator=(EditContainer&&) noexcept = default;

private:
    /// What stands where nothing was set.
    virtual T Default() const = 0;

    QVector<T> m_Elements;
};

/// Texts, empty where none was set.
class COMMONUILIB_EXPORT TEditContainerQString : public EditContainer<QString>
{
public:
    /// The default of every container of texts.
    static QString const m_default;

private:
    QString Default() const override;
};

/// Switches, all alike where none was set.
class COMMONUILIB_EXPORT TEditContainerBool : public EditContainer<bool>
{
public:
    /// \a defaultElement is what stands where nothing was set; an assigned container brings its own.
    explicit TEditContainerBool(bool defaultElement)
        : m_Default(defaultElement)
    {
    }

private:
    bool Default() const override;

    bool m_Default;
};
