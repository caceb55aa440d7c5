#pragma once

#include "MorvaneID.h"
#include "TWindow.h"

#include <QImage>
#include <QList>
#include <QSize>

class QGridLayout;
class QLayout;
class QVBoxLayout;
class TScrollArea;

/// The working window of a module, beside or over its view: a title bar with an icon, content in a layout, OK
/// and Cancel, control buttons, and on demand a button for the export of what it shows. It knows the size
/// that its content wants; the platform's stack of its module places it, whatever its parent. For a question
/// to the operator see TPopupWindow.
///
/// Content sizes are in pixels and without the frame; -1 stands for "not set". GUI thread only.
class COMMONUILIB_EXPORT TTaskWindow : public TWindow
{
    Q_OBJECT

public:
    explicit TTaskWindow(QWidget* parent);

    /// The module whose stack the window belongs to; the empty id is the screen's own. Emits
    /// ParentAppIDChanged() and DesiredGeometryChanged() when it is another one.
    void SetSurfaceID(KVN::MorvaneID const& id);
    KVN::MorvaneID const& SurfaceID() const;

    /// \name The size and place that are wished for
    /// Whoever places the window listens to DesiredGeometryChanged().
    /// @{
    /// Both axes; a negative one is left to the content. Nothing happens when it is the same.
    void SetDesiredContentSize(QSize const& size);
    /// A negative value keeps what is stored for its axis.
    void SetDesiredContentSize(int width, int height);
    /// Leaves the chosen axes to the content.
    void UnsetDesiredContentSize(bool width, bool height);
    /// What was set, else what the content wanted when it was last asked; -1 on an axis without either.
    QSize DesiredContentSize() const;
    QSize MinContentSize() const;
    QSize MaxContentSize() const;
    void SetMinContentSize(QSize const& size);
    void SetMinContentSize(int width, int height);
    void SetMaxContentSize(QSize const& size);
    void SetMaxContentSize(int width, int height);
    /// Asks the content again; tells nobody.
    void RefreshDesiredContentSizeCache();
    /// Asks the content again and tells whoever places the window.
    void ResizeToScrollArea();
    /// Which edges of the free room the window keeps to; at first right and top.
    void SetAlignmentOptions(Qt::Alignment alignment);
    Qt::Alignment GetAlignmentOptions() const;
    /// Where the window goes in \a room: of its desired size, within its limits, never larger than \a room.
    QRect PlaceIn(QRect const& room) const;
    /// @}

    /// \name Title bar
    /// @{
    /// Also when nothing changes, the content is asked again and DesiredGeometryChanged() is emitted.
    void SetHasTitleBar(bool hasTitleBar);
    /// 0 without one.
    int GetTitleBarHeight() const;
    /// An icon by its name; empty for none.
    void SetTitleIcon(QString const& name);
    void SetTitleIcon(QImage const& image);
    /// Null without one.
    QSharedPointer<QPixmap> GetTitleIcon() const;
    /// @}

    /// \name Buttons
    /// @{
    void SetOkButtonVisible(bool visible);
    void SetCancelButtonVisible(bool visible);
    /// The button in the title bar that hands on what the window shows; hidden at first.
    void SetDDNButtonVisible(bool visible);
    /// The control button \a id; an unknown id is ignored.
    void SetButtonVisibility(int id, bool visible);
    void SetButtonVisibility(TPushButton* button, bool visible);
    /// @}

    /// \name Layout of the content
    /// A column or a grid above the row of buttons, to be dragged where the window is too low for it. Widgets
    /// and layouts that are added become the window's.
    /// What is added without either makes a column first.
    /// @{
    void SetupVBoxLayout();
    void SetupGridLayout();
    /// Takes the layout away. The widgets in it stay the window's, hidden until they are added again.
    void ClearLayout();
    void AddLayoutToLayout(QLayout* layout);
    void AddWidgetToLayout(QWidget* widget, int stretch, Qt::Alignment alignment);
    void AddSpacerToLayout(int size);
    void AddStretchToLayout(int stretch);
    /// Only with a grid. Row and column count from 0, the spans from 1; no cell lies beyond the thousandth.
    void AddWidgetToGridLayout(QWidget* widget, int row, int column, int rowSpan, int columnSpan,
                               Qt::Alignment alignment);
    /// @}

    void Setup() override;
    /// How many share the row: OK, Cancel and control buttons, as far as they are to be seen.
    virtual int GetNumberOfVisibleButtons();
    /// Cancels, if that can be done by the button. Always false: a task window stays what the wheel acts on
    /// for as long as it is up.
    bool OnMMIBack() override;
    bool ShouldAutoReCentre() const override;
    /// For a host without stacks: gives the window its place on \a parent.
    void ReCentre(QWidget* parent) override;

public Q_SLOTS:
    /// Shows the window for all modules.
    void ShowWindow(bool modal) override;
    /// With \a localWindow a modal window locks its own module only.
    virtual void ShowWindow(bool modal, bool localWindow);
    /// The content was dragged against its upper or lower end. For subclasses.
    virtual void OnMinScrollLimit();
    virtual void OnMaxScrollLimit();
    /// Hides the window, then emits Ok() or Cancel().
    void OnOk() override;
    void OnCancel() override;
    /// The content wants another size.
    void OnLayoutGeometryChanged();

public:
    /// Lays out the row of buttons at the lower edge of the content, OK at the right.
    virtual void PositionControlButtons();

Q_SIGNALS:
    void Ok();
    void Cancel();
    /// Desired size, limits, alignment, title bar or module have changed: the window is to be placed anew. A
    /// slot may delete the window, but only by deleteLater() while its layout is being laid out.
    void DesiredGeometryChanged();
    void ExportButtonPressed();
    /// The layout was laid out and wants another size than the one known; OnLayoutGeometryChanged() answers.
    void DesiredGeomChangedInternal();
    /// The window now belongs to another module; SurfaceID() answers \a newID already.
    void ParentAppIDChanged(KVN::MorvaneID oldID, KVN::MorvaneID newID);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QLayout* ContentLayout() const;
    template<typename TLayout>
    TLayout* MakeLayout();
    QLayout* LayoutToFill();
    void Reveal(QWidget* widget);
    void InvalidateLayouts();
    QSize HintOf(QLayout const& layout) const;
    QSize ContentHint();
    void TellIfContentChanged();
    int ControlsHeight();
    void PlaceScrollArea();
    void PlaceExportButton();
    void LayOut();
    void ChooseBackground();
    QRect TitleBarRect() const;
    void PaintTitleBar();

    TScrollArea* m_ScrollArea = nullptr;
    QVBoxLayout* m_VBoxLayout = nullptr;
    QGridLayout* m_GridLayout = nullptr;
    QList<QPointer<QWidget>> m_ClearedWidgets;
    bool m_HasTitleBar = true;
    bool m_OkVisible = true;
    bool m_CancelVisible = true;
    bool m_ExportVisible = false;
    QSharedPointer<QPixmap> m_TitleIcon;
    TPushButton* m_ExportButton = nullptr;
    Qt::Alignment m_Alignment = Qt::AlignRight | Qt::AlignTop;
    QSize m_DesiredSize;
    QSize m_DesiredSizeCache;
    QSize m_MinSize;
    QSize m_MaxSize;
    KVN::MorvaneID m_SurfaceId;
};
