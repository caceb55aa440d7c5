#pragma once

#include "CommonUILibExport.h"

#include <QVBoxLayout>

/// A column that says when it has placed its items, for what must follow one of them without being laid out
/// itself. For rows and columns see TSignallingGridLayout.
class COMMONUILIB_EXPORT TSignallingVBoxLayout : public QVBoxLayout
{
    Q_OBJECT

public:
    /// The layout of \a parent, or of no widget yet.
    explicit TSignallingVBoxLayout(QWidget* parent = nullptr);

    void setGeometry(QRect const& rect) override;

Q_SIGNALS:
    /// The layout was given a rectangle, the same one included, and every item has its place. A slot may
    /// delete the layout, its widget and items by deleteLater() only: whoever set the layout off works on.
    void GeometryChanged();
};
