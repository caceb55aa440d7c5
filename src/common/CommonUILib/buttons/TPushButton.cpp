#include "TPushButton.h"

#include "Fonts.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "MorvanePlatformInterface.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"

#include <QEvent>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace
{
constexpr int DefaultBorder = 5;
constexpr int DefaultAlignment = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;
// How far a finger may slide off a button that is down before it lets go.
constexpr int SlideOff = 50;
constexpr int DoubleClickMs = 300;
constexpr int EnterPressMs = 100;
// Sent by hosts to take the finger off a button.
constexpr int ClearDownEvent = QEvent::User + 1;

constexpr int MinimumWidth = 30;
constexpr int RoomBesideIcon = 15;
constexpr int RoomForText = 200;
constexpr int IconLeftWithText = 1;
constexpr int LeftAlignedInset = 5;

// The part of a handed over skin that stretches.
constexpr int StretchFrom = 16;
constexpr int StretchTo = 40;

// Beyond this the parts cost little beside their background, and their picture takes much memory.
constexpr int LargestComposedArea = 256 * 128;

constexpr int BoldWeight = QFont::Bold;
constexpr int PlainWeight = QFont::Normal;

constexpr int IconToolTipPlacement = 0;

bool IsUsable(QSharedPointer<QPixmap> const& pixmap)
{
    return pixmap && !pixmap->isNull();
}

QSharedPointer<QPixmap> Shared(QPixmap const& pixmap)
{
    return pixmap.isNull() ? QSharedPointer<QPixmap>() : QSharedPointer<QPixmap>::create(pixmap);
}

QSize SizeOf(QSharedPointer<QPixmap> const& pixmap)
{
    return pixmap ? pixmap->size() : QSize();
}

QSharedPointer<QPixmap> LoadIcon(QString const& name, int side, KVN::EIconState state)
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    return pixmaps && !name.isEmpty() ? pixmaps->GetResizedIcon(name, side, state)
                                      : QSharedPointer<QPixmap>();
}

QPixmap HeldTo(QPixmap const& pixmap, int side)
{
    if (pixmap.width() <= side && pixmap.height() <= side)
        return pixmap;
    return pixmap.scaled(side, side, Qt::KeepAspectRatio, Qt::FastTransformation);
}

QImage Grey(QImage const& image)
{
    QImage grey = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < grey.height(); ++y)
    {
        auto* const line = reinterpret_cast<QRgb*>(grey.scanLine(y));
        std::transform(line, line + grey.width(), line,
                       [](QRgb pixel)
                       {
                           int const value = (16 * qGreen(pixel) + 11 * qRed(pixel) + 5 * qBlue(pixel)) >> 5;
                           return qRgba(value, value, value, qAlpha(pixel));
                       });
    }
    return grey;
}

// A copy of a font brings the engine along for which a new font has to search.
QFont SizedFont(bool bold, int pixelSize)
{
    static QHash<int, QFont> fonts;
    static bool const cleared = []
    {
        // Fonts must not outlive the application that loaded them.
        qAddPostRoutine([] { fonts.clear(); });
        return true;
    }();
    Q_UNUSED(cleared)
    int const size = qMax(1, pixelSize);
    QFont& font = fonts[bold ? -size : size];
    if (font.pixelSize() != size)
    {
        font = bold ? CONDENSED_BOLD_FONT : CONDENSED_FONT;
        font.setWeight(bold ? BoldWeight : PlainWeight);
        font.setPixelSize(size);
    }
    return font;
}

bool LiesOnOpaquePixels(QImage const& image, QImage const& ground)
{
    QImage const below = ground.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y)
    {
        auto const* const line = reinterpret_cast<QRgb const*>(image.constScanLine(y));
        auto const* const lineBelow = reinterpret_cast<QRgb const*>(below.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
        {
            if (qAlpha(line[x]) != 0 && qAlpha(lineBelow[x]) != 255)
                return false;
        }
    }
    return true;
}

// A change of opacity costs, and nearly every button paints with none.
void ChangeOpacity(QPainter& painter, float opacity)
{
    if (!qFuzzyCompare(float(painter.opacity()), opacity))
        painter.setOpacity(qreal(opacity));
}
} // namespace

struct TPushButton::TTextArea
{
    int left;
    int top;
    int right;
    int bottom;

    int Width() const { return right - left + 1; }
    int Height() const { return bottom - top + 1; }
};

struct TPushButton::TTextHeights
{
    int line = 0;
    int whole = 0;

    int Lines() const { return line > 0 ? whole / line : 0; }
};

TPushButton::TTextLine::TTextLine()
    : colour(regularButtonTextColor)
    , alignment(DefaultAlignment)
{
}

TPushButton::TTextLine::~TTextLine() = default;

TPushButton::TPushButton(QWidget* parent, int id, QString const& toolTip)
    : QAbstractButton(parent)
    , m_ButtonId(id)
{
    ConstructorPreInitialize();
    ConstructorPostInitialize(toolTip);
}

TPushButton::TPushButton(QWidget* parent, QString const& iconName, QString const& backgroundName,
                         QSize const& minimumSize, QPoint const& position, int id, QString const& toolTip)
    : QAbstractButton(parent)
    , m_ButtonId(id)
{
    ConstructorPreInitialize();
    setEnabled(true);
    SetBackground(backgroundName);
    SetMinimumSizeOrStandard(minimumSize);
    TPushButton::SetIcon(iconName, QSize(-1, -1), true);
    move(position);
    ShowOnParent();
    ConstructorPostInitialize(toolTip);
}

TPushButton::TPushButton(QWidget* parent, QString const& iconName, QSize const& minimumSize,
                         QPoint const& position, int id, QString const& toolTip)
    : QAbstractButton(parent)
    , m_ButtonId(id)
{
    ConstructorPreInitialize();
    setEnabled(true);
    SetBackground(PixmapNames::NewStandardButton);
    SetBackgroundSelected(PixmapNames::NewStandardButtonSelected);
    SetMinimumSizeOrStandard(minimumSize);
    TPushButton::SetIcon(iconName, QSize(-1, -1), true);
    move(position);
    ShowOnParent();
    ConstructorPostInitialize(toolTip);
}

TPushButton::TPushButton(QWidget* parent, QString const& iconName, QString const& backgroundName,
                         QString const& selectedBackgroundName, int id, QString const& toolTip)
    : QAbstractButton(parent)
    , m_ButtonId(id)
{
    ConstructorPreInitialize();
    setEnabled(true);
    SetBackground(backgroundName);
    SetBackgroundSelected(selectedBackgroundName);
    SetMinimumSizeOrStandard(QSize());
    TPushButton::SetIcon(iconName, QSize(-1, -1), true);
    ShowOnParent();
    ConstructorPostInitialize(toolTip);
}

TPushButton::TPushButton(QWidget* parent, QString const& iconName, QSharedPointer<QPixmap> background,
                         QSharedPointer<QPixmap> selectedBackground, int id, QString const& toolTip)
    : QAbstractButton(parent)
    , m_ButtonId(id)
{
    ConstructorPreInitialize();
    setEnabled(true);
    if (background)
        SetBackground(background);
    if (selectedBackground)
        SetBackgroundSelected(selectedBackground);
    SetMinimumSizeOrStandard(QSize());
    TPushButton::SetIcon(iconName, QSize(-1, -1), true);
    ShowOnParent();
    ConstructorPostInitialize(toolTip);
}

TPushButton::~TPushButton()
{
    MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance();
    if (platform && platform->IsToolTipShownFor(this))
        platform->HideToolTip();
}

void TPushButton::ConstructorPreInitialize()
{
    SetUseDefaultMMIHighlight(false);
    QSizePolicy policy = sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Preferred);
    setSizePolicy(policy);
    m_Border = {DefaultBorder, DefaultBorder, DefaultBorder, DefaultBorder};
    m_MinimumHint = QSize(MinimumWidth, STANDARD_BUTTON_HEIGHT);
    m_Hint = m_MinimumHint;
}

void TPushButton::ConstructorPostInitialize(QString const& toolTip)
{
    SetToolTip(toolTip);
    // The first connections of all, so that Clicked(int) comes before any other slot of clicked().
    connect(this, &QAbstractButton::clicked, this, &TPushButton::OnClicked);
    connect(this, &QAbstractButton::pressed, this, &TPushButton::OnButtonDown);
    connect(this, &QAbstractButton::released, this, &TPushButton::OnButtonRelease);
    if (MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance())
        connect(platform, &MorvanePlatformInterface::NotifyToolTipsEnabled, this,
                qOverload<>(&QWidget::update));
}

void TPushButton::SetMinimumSizeOrStandard(QSize const& size)
{
    bool const given = size.width() > 0 && size.height() > 0;
    setMinimumSize(given ? size : QSize(STANDARD_BUTTON_WIDTH, STANDARD_BUTTON_HEIGHT));
}

void TPushButton::ShowOnParent()
{
    raise();
    if (parentWidget())
        show();
}

void TPushButton::SetIcon(QString const& name, QSize const& size, bool enable)
{
    SetObjectName(name, NAME_FROM_ICON);
    if (enable && !isEnabled())
        setEnabled(true);
    m_RequestedIconSize = size;
    int const side = IconSide(size);
    bool const fits = m_Icon ? m_Icon->size() == QSize(side, side) : name.isEmpty() && !m_DisabledIcon;
    if (name == m_IconName && fits)
        return;
    m_Icon = LoadIcon(name, side, KVN::ICON_NORMAL);
    m_DisabledIcon =
        !enable && !isEnabled() ? LoadIcon(name, side, KVN::ICON_DISABLED) : QSharedPointer<QPixmap>();
    m_IconName = name;
    RecalculateTextRects();
}

void TPushButton::SetIcon(QImage const& image, QSize const& size, bool enable)
{
    if (enable && !isEnabled())
        setEnabled(true);
    m_RequestedIconSize = size;
    int const side = IconSide(size);
    SetIcon(Shared(HeldTo(QPixmap::fromImage(image), side)),
            Shared(HeldTo(QPixmap::fromImage(Grey(image)), side)));
}

void TPushButton::SetIcon(QSharedPointer<QPixmap> icon, QSharedPointer<QPixmap> disabledIcon)
{
    bool const changesLayout = bool(icon) != bool(m_Icon) || SizeOf(icon) != SizeOf(m_Icon) ||
                               bool(disabledIcon) != bool(m_DisabledIcon) ||
                               SizeOf(disabledIcon) != SizeOf(m_DisabledIcon);
    m_Icon = std::move(icon);
    m_DisabledIcon = std::move(disabledIcon);
    m_IconName.clear();
    if (changesLayout)
    {
        RecalculateTextRects();
        return;
    }
    FollowHints();
    update();
}

void TPushButton::SetText(QString text, QString objectName, bool enable, QString secondLine,
                          bool useSecondLine)
{
    SetObjectName(objectName, NAME_FROM_TEXT);
    TTextLine& first = Line(false);
    TTextLine& second = Line(true);
    bool changed = !first.font || first.text != text || QAbstractButton::text() != text ||
                   m_UseSecondLine != useSecondLine;
    if (!first.font)
        SetLineFont(false, true, STANDARD_FONT_SIZE);
    if (enable && !isEnabled())
        setEnabled(true);
    first.text = text;
    m_InsideSetText = true;
    setText(text);
    m_InsideSetText = false;
    m_UseSecondLine = useSecondLine;
    if (useSecondLine)
    {
        changed = changed || !second.font || second.text != secondLine;
        if (!second.font)
            SetLineFont(true, true, SMALL_FONT_SIZE);
        second.text = secondLine;
    }
    if (changed)
        RecalculateTextRects();
}

KVN::MMICapableWidget* TPushButton::OnMMIEnter()
{
    QPointer<TPushButton> const self(this);
    animateClick(EnterPressMs);
    return self ? KVN::MMICapableWidget::OnMMIEnter() : nullptr;
}

void TPushButton::OnMMIHighlight()
{
    m_MMIHighlighted = true;
    FollowOpacity();
    update();
}

void TPushButton::OnMMIUnHighlight()
{
    m_MMIHighlighted = false;
    FollowOpacity();
    update();
}

void TPushButton::ShowToolTip()
{
    MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance();
    if (!platform)
        return;
    if (m_ToolTip.isEmpty())
        platform->HideToolTip();
    else
        platform->ShowToolTipFor(this, IconToolTipPlacement, m_ToolTip, GetToolTipIcon());
}

void TPushButton::ResizeContents()
{
    {
        // The text is laid out once, when all that it gives way to has its place.
        QScopedValueRollback<bool> const later(m_LayoutLater, true);
        for (TFace& face : m_Faces)
            FitFace(face);
        if (!m_IconName.isEmpty())
            SetIcon(m_IconName, m_RequestedIconSize, false);
        if (m_ExplicitIconPosition && m_IconVerticallyCentred)
            SetIconPosition(m_IconPosition, true);
    }
    RecalculateTextRects();
}

QSize TPushButton::sizeHint() const
{
    QSize const minimum = minimumSizeHint();
    return HasText() ? minimum + QSize(RoomForText, 0) : minimum;
}

QSize TPushButton::minimumSizeHint() const
{
    int const height = minimumSize().height();
    return {m_Icon ? m_Icon->width() + RoomBesideIcon : MinimumWidth,
            height < 1 ? STANDARD_BUTTON_HEIGHT : height};
}

void TPushButton::SetBackground(QString const& name)
{
    SetFace(FACE_NORMAL, name);
}

void TPushButton::SetBackground(QSharedPointer<QPixmap> const& pixmap)
{
    SetFace(FACE_NORMAL, pixmap);
}

void TPushButton::SetBackgroundSelected(QString const& name)
{
    SetFace(FACE_SELECTED, name);
}

void TPushButton::SetBackgroundSelected(QSharedPointer<QPixmap> const& pixmap)
{
    SetFace(FACE_SELECTED, pixmap);
}

void TPushButton::SetBackgroundChecked(QString const& name)
{
    SetFace(FACE_CHECKED, name);
}

void TPushButton::SetBackgroundChecked(QSharedPointer<QPixmap> const& pixmap)
{
    SetFace(FACE_CHECKED, pixmap);
}

void TPushButton::SetBackgroundDisabled(QString const& name)
{
    SetFace(FACE_DISABLED, name);
}

void TPushButton::SetBackgroundDisabled(QSharedPointer<QPixmap> const& pixmap)
{
    SetFace(FACE_DISABLED, pixmap);
}

void TPushButton::SetBackgroundColor(QColor const& colour)
{
    if (m_FlatColour && colour == m_BackgroundColour)
        return;
    m_FlatColour = true;
    m_BackgroundColour = colour;
    setAttribute(Qt::WA_OpaquePaintEvent, CoversItself());
    update();
}

void TPushButton::SetBackgroundOpacity(float opacity)
{
    m_BackgroundOpacity = opacity;
    m_BackgroundDisabledOpacity = opacity / 2;
    FollowOpacity();
    update();
}

void TPushButton::SetBackgroundDisabledOpacity(float opacity)
{
    m_BackgroundDisabledOpacity = opacity;
    FollowOpacity();
    update();
}

void TPushButton::SetForegroundDisabledOpacity(float opacity)
{
    m_ForegroundDisabledOpacity = opacity;
    update();
}

void TPushButton::SetBackgroundBorderArea(int left, int top, int right, int bottom)
{
    if (m_Border.left == left && m_Border.top == top && m_Border.right == right && m_Border.bottom == bottom)
        return;
    m_Border = {left, top, right, bottom};
    RecalculateTextRects();
}

// Only the normal background decides at a set whether what is behind the button needs painting; the rest is
// followed as it shows.
void TPushButton::SetFace(EFace which, QString const& name)
{
    TFace& face = m_Faces[which];
    if (face.name == name && !m_FlatColour)
        return;
    m_FlatColour = false;
    face.name = name;
    face.source.reset();
    KVN::PixmapManager const* const pixmaps = tscreenPixmapManager();
    face.opaque = pixmaps && !name.isEmpty() && pixmaps->IsPixmapOpaque(name);
    ShowFaceChange(which);
}

void TPushButton::SetFace(EFace which, QSharedPointer<QPixmap> const& pixmap)
{
    TFace& face = m_Faces[which];
    m_FlatColour = false;
    face.name.clear();
    face.source = pixmap;
    face.opaque = IsUsable(pixmap) && !pixmap->hasAlphaChannel();
    ShowFaceChange(which);
}

void TPushButton::ShowFaceChange(EFace which)
{
    // A resize that is still to come fits it; doing it now would scale it to a size that nobody sees.
    if (!testAttribute(Qt::WA_PendingResizeEvent))
        FitFace(m_Faces[which]);
    if (which == FACE_NORMAL)
        setAttribute(Qt::WA_OpaquePaintEvent, m_Faces[which].opaque);
    bool const shows = which == FACE_NORMAL || (which == FACE_SELECTED && isDown()) ||
                       (which == FACE_CHECKED && isChecked()) || (which == FACE_DISABLED && !isEnabled());
    if (shows)
        update();
}

void TPushButton::FitFace(TFace& face) const
{
    if (!face.name.isEmpty())
    {
        KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
        face.shown =
            pixmaps ? pixmaps->GetResizedPixmap(face.name, width(), height()) : QSharedPointer<QPixmap>();
        return;
    }
    face.shown.reset();
    if (!IsUsable(face.source) || size().isEmpty())
        return;
    face.shown = QSharedPointer<QPixmap>::create(size());
    face.shown->fill(face.opaque ? Qt::black : Qt::transparent);
    QPainter painter(face.shown.data());
    KVN::RenderUtils::RenderScaledBitmap(&painter, *face.source, width(), height(), StretchFrom, StretchFrom,
                                         StretchTo, StretchTo);
}

// Null while the state has no background of its own.
TPushButton::TFace const* TPushButton::VisibleFace() const
{
    TFace const* face = nullptr;
    if (isChecked())
        face = isEnabled() ? &m_Faces[FACE_CHECKED] : nullptr;
    else if (isDown() || m_MMIHighlighted)
        face = isEnabled() ? &m_Faces[FACE_SELECTED] : nullptr;
    else
        face = !isEnabled() && IsUsable(m_Faces[FACE_DISABLED].shown) ? &m_Faces[FACE_DISABLED]
                                                                      : &m_Faces[FACE_NORMAL];
    return face && IsUsable(face->shown) ? face : nullptr;
}

QColor TPushButton::FlatColour() const
{
    if (isEnabled() && (isDown() || isChecked()))
        return pushButtonSelectedColor;
    return m_BackgroundColour.isValid() ? m_BackgroundColour : pushButtonColor;
}

float TPushButton::BackgroundOpacity() const
{
    TFace const& normal = m_Faces[FACE_NORMAL];
    bool const opaqueByName = normal.opaque && !normal.name.isEmpty();
    return isEnabled() || opaqueByName ? m_BackgroundOpacity : m_BackgroundDisabledOpacity;
}

bool TPushButton::CanCoverItself() const
{
    return m_FlatColour || m_Faces[FACE_NORMAL].opaque;
}

// Whether the present state leaves nothing of what is behind the button.
bool TPushButton::CoversItself() const
{
    if (BackgroundOpacity() < 1.0F)
        return false;
    if (m_FlatColour)
        return FlatColour().alpha() == 255;
    TFace const* const face = VisibleFace();
    return face && face->opaque;
}

// A state without an opaque background needs what is behind the button painted first.
void TPushButton::FollowOpacity()
{
    if (!CanCoverItself())
        return;
    bool const covers = CoversItself();
    if (testAttribute(Qt::WA_OpaquePaintEvent) == covers)
        return;
    setAttribute(Qt::WA_OpaquePaintEvent, covers);
    if (!covers)
        update();
}

void TPushButton::SetIconPosition(QPoint const& position, bool centreVertically)
{
    QPoint wanted = position;
    if (centreVertically && m_Icon)
        wanted.setY((height() - m_Icon->height()) / 2);
    if (m_ExplicitIconPosition && !m_IconFromCentre && m_IconPosition == wanted &&
        m_IconVerticallyCentred == centreVertically)
        return;
    m_ExplicitIconPosition = true;
    m_IconFromCentre = false;
    m_IconPosition = wanted;
    m_IconVerticallyCentred = centreVertically;
    RecalculateTextRects();
}

void TPushButton::SetIconPositionFromCentre(QPoint const& offset)
{
    if (m_IconFromCentre && m_IconPosition == offset)
        return;
    m_IconFromCentre = true;
    m_ExplicitIconPosition = false;
    m_IconPosition = offset;
    RecalculateTextRects();
}

void TPushButton::SetRightSideIcon(QString const& name)
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    QSize const before = SizeOf(m_RightSideIcon);
    m_RightSideIcon =
        pixmaps && !name.isEmpty() ? pixmaps->GetIcon(name, KVN::ICON_NORMAL) : QSharedPointer<QPixmap>();
    if (SizeOf(m_RightSideIcon) == before)
        update();
    else
        RecalculateTextRects();
}

void TPushButton::SetRightSideIconMargin(int margin)
{
    if (m_RightSideIconMargin == margin)
        return;
    m_RightSideIconMargin = margin;
    RecalculateTextRects();
}

int TPushButton::GetIconLeftPosition() const
{
    if (!m_Icon)
        return 0;
    if (m_ExplicitIconPosition)
        return m_IconPosition.x();
    int const centred = (width() - m_Icon->width()) / 2;
    if (m_IconFromCentre)
        return centred + m_IconPosition.x();
    return HasText() ? IconLeftWithText : centred;
}

int TPushButton::GetIconTopPosition() const
{
    if (!m_Icon)
        return 0;
    if (m_ExplicitIconPosition)
        return m_IconPosition.y();
    int const centred = (height() - m_Icon->height()) / 2;
    return m_IconFromCentre ? centred + m_IconPosition.y() : centred;
}

QSize TPushButton::GetIconSize() const
{
    return SizeOf(m_Icon);
}

int TPushButton::IconSide(QSize const& size) const
{
    QSize const given = size.width() < 0 || size.height() < 0 ? this->size() : size;
    return qMin(given.width(), given.height());
}

void TPushButton::setText(QString const& text)
{
    if (text == QAbstractButton::text())
        return;
    QAbstractButton::setText(text);
    if (!m_InsideSetText)
        RecalculateTextRects();
}

QString TPushButton::GetText() const
{
    return m_UseSecondLine ? m_Lines[0].text : text();
}

QString TPushButton::GetSecondLine() const
{
    return m_Lines[1].text;
}

QString TPushButton::DrawnSecondLine() const
{
    return m_UseSecondLine ? m_Lines[1].text : QString();
}

bool TPushButton::HasText() const
{
    return m_UseSecondLine ? !m_Lines[0].text.isEmpty() || !m_Lines[1].text.isEmpty() : !text().isEmpty();
}

void TPushButton::SetLineFont(bool secondLine, bool bold, int pixelSize)
{
    TTextLine& line = Line(secondLine);
    line.font = std::make_unique<QFont>(SizedFont(bold, pixelSize));
    if (!secondLine)
        setFont(*line.font);
}

void TPushButton::SetFontProperties(QColor colour, int pixelSize, bool bold, bool wrap, bool shadow,
                                    int alignment, bool secondLine)
{
    TTextLine& line = Line(secondLine);
    line.colour = colour;
    line.alignment = alignment;
    line.wrap = wrap;
    line.shadow = shadow;
    SetLineFont(secondLine, bold, pixelSize);
    RecalculateTextRects();
}

void TPushButton::SetFontSize(int pixelSize, bool secondLine)
{
    QFont const* const present = Line(secondLine).font.get();
    if (present && present->pixelSize() == qMax(1, pixelSize))
        return;
    SetLineFont(secondLine, present && present->weight() == BoldWeight, pixelSize);
    RecalculateTextRects();
}

void TPushButton::SetAlignment(int alignment, bool secondLine)
{
    TTextLine& line = Line(secondLine);
    if (line.alignment == alignment)
        return;
    line.alignment = alignment;
    RecalculateTextRects();
}

void TPushButton::SetTextPlacement(ETextPlacement placement)
{
    m_TextPlacement = placement;
    RecalculateTextRects();
}

QRect TPushButton::GetFirstLineRect() const
{
    return m_Lines[0].rect;
}

QRect TPushButton::GetSecondLineRect() const
{
    return m_Lines[1].rect;
}

void TPushButton::RecalculateTextRects()
{
    if (m_LayoutLater)
        return;
    bool const hasFirst = m_Lines[0].font && !GetText().isEmpty();
    bool const hasSecond = m_Lines[1].font && !DrawnSecondLine().isEmpty();
    if (hasFirst || hasSecond)
    {
        PlaceLines();
    }
    else
    {
        m_Lines[0].rect = QRect();
        m_Lines[1].rect = QRect();
    }
    ForgetComposed();
    FollowHints();
    update();
}

// Layouts are not bothered where nothing changes for them.
void TPushButton::FollowHints()
{
    QSize const hint = sizeHint();
    QSize const minimum = minimumSizeHint();
    if (hint == m_Hint && minimum == m_MinimumHint)
        return;
    m_Hint = hint;
    m_MinimumHint = minimum;
    updateGeometry();
}

// The first text keeps one line, then the second takes what it wants, then the first grows into the rest.
void TPushButton::PlaceLines()
{
    TTextArea const area = TextArea();
    int const available = area.Height();
    TTextHeights const first = MeasureText(m_Lines[0], GetText(), area.Width());
    TTextHeights const second = MeasureText(m_Lines[1], DrawnSecondLine(), area.Width());

    int firstHeight = first.whole > 0 ? first.line : 0;
    int const room = second.line > 0 ? qMax(0, available - firstHeight) / second.line : 0;
    int const secondHeight = qMin(room, second.Lines()) * second.line;
    for (int lines = 1; lines < first.Lines() && firstHeight + first.line + secondHeight <= available;
         ++lines)
        firstHeight += first.line;

    auto const all = float(available);
    auto const used = float(firstHeight + secondHeight);
    int const pad = int(area.bottom < area.top ? all * 0.5F : all * (1.0F - used / all) * 0.5F);
    int const firstTop = area.top + pad;
    m_Lines[0].rect = QRect(QPoint(area.left, firstTop), QPoint(area.right, firstTop + firstHeight));
    m_Lines[1].rect = QRect(QPoint(area.left, firstTop + firstHeight), QPoint(area.right, area.bottom - pad));
}

TPushButton::TTextArea TPushButton::TextArea() const
{
    TTextArea area{m_Border.left, m_Border.top, 0, height() - 1 - m_Border.bottom};
    if (m_Icon && m_TextPlacement == TEXT_RIGHT_OF_ICON)
        area.left = GetIconLeftPosition() + m_Icon->width();
    else if (m_Icon && m_TextPlacement == TEXT_BELOW_ICON)
        area = {m_Border.left, GetIconTopPosition() + m_Icon->height(), 0, height() - 1};
    else if (m_Icon)
        area = {0, 0, 0, height() - 1};
    area.right = width() - 1 - (m_RightSideIcon ? m_RightSideIcon->width() : m_Border.right);
    if ((m_Lines[0].alignment & Qt::AlignLeft) != 0)
        area.left += LeftAlignedInset;
    return area;
}

TPushButton::TTextHeights TPushButton::MeasureText(TTextLine const& line, QString const& text,
                                                   int width) const
{
    if (!line.font)
        return {};
    return {KVN::RenderUtils::GetTextHeight(QString(), *line.font, width),
            text.isEmpty() ? 0 : KVN::RenderUtils::GetTextHeight(text, *line.font, width)};
}

void TPushButton::SetAutoRepeat(bool enabled, int delayMs, int intervalMs)
{
    setAutoRepeat(enabled);
    setAutoRepeatDelay(delayMs);
    setAutoRepeatInterval(intervalMs);
}

void TPushButton::PlayButtonPressSounds(bool play)
{
    m_PlayPressSounds = play;
}

void TPushButton::SetPropagateClicks(bool propagate)
{
    m_PropagateClicks = propagate;
}

void TPushButton::SetButtonID(int id)
{
    m_ButtonId = id;
}

int TPushButton::GetButtonId() const
{
    return m_ButtonId;
}

void TPushButton::animateClick(int msec)
{
    if (!isEnabled())
        return;
    // One press, however often its end is put off.
    bool const begins = !m_AnimatedPress;
    m_AnimatedPress = true;
    {
        // The base works on the button after pressed(): so that comes when the base is done.
        QSignalBlocker const quiet(this);
        QAbstractButton::animateClick(msec);
    }
    if (begins)
        Q_EMIT pressed();
}

void TPushButton::MakeDoubleClickConnections()
{
    MakeDoubleClickDisconnect();
    m_ArmedForDoubleClick = false;
    DoubleClickTimer()->stop();
    connect(DoubleClickTimer(), &QTimer::timeout, this, &TPushButton::OnDoubleClickTimeOut);
}

void TPushButton::MakeDoubleClickDisconnect()
{
    disconnect(DoubleClickTimer(), &QTimer::timeout, this, &TPushButton::OnDoubleClickTimeOut);
}

// Made by the first release: most buttons of a view are never touched.
QTimer* TPushButton::DoubleClickTimer()
{
    if (!m_DoubleClickTimer)
        m_DoubleClickTimer = new QTimer(this);
    return m_DoubleClickTimer;
}

void TPushButton::SetObjectName(QString const& name, EObjectNameSource source)
{
    if (source >= m_ObjectNameSource || name.isEmpty())
        return;
    m_ObjectNameSource = source;
    QObject::setObjectName(name);
}

void TPushButton::SetToolTip(QString const& text)
{
    SetObjectName(text, NAME_FROM_TOOL_TIP);
    if (text == m_ToolTip)
        return;
    m_ToolTip = text;
    if (ToolTipVisible())
        update();
}

QString TPushButton::GetToolTip() const
{
    return m_ToolTip;
}

void TPushButton::SetToolTipIcon(QPixmap const& icon)
{
    m_ToolTipIcon = Shared(icon);
}

void TPushButton::SetToolTipIcon(QImage const& icon)
{
    m_ToolTipIcon = Shared(QPixmap::fromImage(icon));
}

QSharedPointer<QPixmap> TPushButton::GetToolTipIcon() const
{
    return m_ToolTipIcon ? m_ToolTipIcon : m_Icon;
}

void TPushButton::SetToolTipMarkOffset(QPoint const& offset)
{
    if (offset == m_ToolTipMarkOffset)
        return;
    m_ToolTipMarkOffset = offset;
    if (ToolTipVisible())
        update();
}

bool TPushButton::ToolTipVisible() const
{
    MorvanePlatformInterface const* const platform = MorvanePlatformInterface::Instance();
    return platform && platform->ToolTipVisible();
}

bool TPushButton::event(QEvent* event)
{
    switch (int(event->type()))
    {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return HandOverToParent(static_cast<QMouseEvent*>(event), &TPushButton::TakePress);
    case QEvent::MouseMove:
        return HandOverToParent(static_cast<QMouseEvent*>(event), &TPushButton::TakeMove);
    case QEvent::MouseButtonRelease:
        return HandOverToParent(static_cast<QMouseEvent*>(event), &TPushButton::TakeRelease);
    case QEvent::EnabledChange:
        if (isEnabled())
            break;
        if (!m_IconName.isEmpty() && !m_DisabledIcon)
            m_DisabledIcon = LoadIcon(m_IconName, IconSide(m_RequestedIconSize), KVN::ICON_DISABLED);
        return LetGoAfter(event);
    case QEvent::FocusOut:
        if (static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason)
            break;
        return LetGoAfter(event);
    case QEvent::Hide:
        ForgetComposed();
        break;
    case ClearDownEvent:
        setDown(false);
        break;
    default:
        break;
    }
    return QAbstractButton::event(event);
}

// The base would still work on the button after released(): so that comes when the base is done.
bool TPushButton::LetGoAfter(QEvent* event)
{
    m_LetGoWaits = m_LetGoWaits || isDown();
    setDown(false);
    bool const handled = QAbstractButton::event(event);
    // Disabling takes the focus first, and is not done with the button then.
    bool const done = isEnabled() || event->type() == QEvent::EnabledChange;
    if (done && std::exchange(m_LetGoWaits, false))
        Q_EMIT released();
    return handled;
}

// Qt offers an event that nobody took to the parent. It finds the parent through this object, so a button
// that a slot deleted claims the event instead.
bool TPushButton::HandOverToParent(QMouseEvent* event, void (TPushButton::*handle)(QMouseEvent*))
{
    QPointer<TPushButton> const self(this);
    (this->*handle)(event);
    event->setAccepted(!self);
    return !self;
}

void TPushButton::TakePress(QMouseEvent* event)
{
    m_Pressed = true;
    if (ExplainsItself())
    {
        ShowToolTip();
        return;
    }
    if (!isEnabled())
        return;
    m_PressPosition = OwnGlobalPosition();
    RearmSound();
    QAbstractButton::event(event);
}

void TPushButton::TakeMove(QMouseEvent* event)
{
    if (ExplainsItself())
    {
        if (hitButton(event->localPos().toPoint()))
            ShowToolTip();
        else if (MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance())
            platform->HideToolTip();
        return;
    }
    if (!isEnabled() || (!m_Pressed && !hasMouseTracking()))
        return;
    if (OwnGlobalPosition() != m_PressPosition)
        LetGo();
    else
        QAbstractButton::event(event);
}

void TPushButton::TakeRelease(QMouseEvent* event)
{
    m_Pressed = false;
    if (!isEnabled() || ExplainsItself())
        return;
    if (MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance())
        platform->HideToolTip();
    QPointer<TPushButton> const self(this);
    QPoint const position = event->localPos().toPoint();
    FinishRelease(event);
    if (self)
        NoticeSecondRelease(position);
}

void TPushButton::FinishRelease(QMouseEvent* event)
{
    if (OwnGlobalPosition() != m_PressPosition || !m_PropagateClicks || HasTransparentAncestor())
    {
        LetGo();
        return;
    }
    QPointer<TPushButton> const self(this);
    QAbstractButton::event(event);
    // Not before: the release ends with a click, and that of a long hold has sounded already.
    if (self)
        RearmSound();
}

void TPushButton::NoticeSecondRelease(QPoint const& position)
{
    DoubleClickTimer()->stop();
    if (m_ArmedForDoubleClick)
    {
        m_ArmedForDoubleClick = false;
        Q_EMIT DoubleClicked();
    }
    else if (hitButton(position))
    {
        m_ArmedForDoubleClick = true;
        DoubleClickTimer()->start(DoubleClickMs);
    }
}

void TPushButton::LetGo()
{
    setDown(false);
    Q_EMIT released();
}

bool TPushButton::ExplainsItself() const
{
    return !m_ToolTip.isEmpty() && ToolTipVisible();
}

bool TPushButton::HasTransparentAncestor() const
{
    for (QWidget const* widget = this; widget; widget = widget->parentWidget())
    {
        if (widget->testAttribute(Qt::WA_TransparentForMouseEvents))
            return true;
    }
    return false;
}

// The button's place in its parent, mapped as if it were one in the button. It stands for no point on the
// screen; that two of them differ just when the button has moved is what it is for.
QPoint TPushButton::OwnGlobalPosition() const
{
    return mapToGlobal(QPoint(x(), y()));
}

void TPushButton::RearmSound()
{
    if (autoRepeat())
        m_SoundOnNextClick = true;
}

bool TPushButton::TakeClickSound()
{
    bool const sounds = m_PlayPressSounds && (!autoRepeat() || m_SoundOnNextClick);
    if (m_PlayPressSounds && autoRepeat())
        m_SoundOnNextClick = false;
    return sounds;
}

void TPushButton::OnClicked()
{
    QPointer<TPushButton> const self(this);
    bool sounds = m_PlayPressSounds && (!autoRepeat() || m_SoundOnNextClick);
    if (m_ButtonId >= 0)
        Q_EMIT Clicked(m_ButtonId);
    // A button that its click deleted is still heard.
    if (self)
        sounds = TakeClickSound();
    if (sounds)
        tscreenPlaySound(SOUND_BUTTON_PRESS);
}

void TPushButton::OnButtonDown()
{
    if (m_ButtonId >= 0)
        Q_EMIT Pressed(m_ButtonId);
}

void TPushButton::OnButtonRelease()
{
    m_AnimatedPress = false;
    if (m_ButtonId >= 0)
        Q_EMIT Released(m_ButtonId);
}

void TPushButton::OnDoubleClickTimeOut()
{
    m_ArmedForDoubleClick = false;
    DoubleClickTimer()->stop();
    Q_EMIT DelayedSingleClicked();
}

void TPushButton::resizeEvent(QResizeEvent*)
{
    ResizeContents();
}

void TPushButton::showEvent(QShowEvent* event)
{
    if (!m_Faces[FACE_NORMAL].name.isEmpty() && m_Faces[FACE_NORMAL].opaque)
        resize(size());
    m_PropagateClicks = true;
    QAbstractButton::showEvent(event);
}

bool TPushButton::hitButton(QPoint const& position) const
{
    QRect area(QPoint(m_Border.left / 2, m_Border.top / 2),
               QPoint(width() - 1 - m_Border.right / 2, height() - 1 - m_Border.bottom / 2));
    if (isDown())
        area.adjust(-SlideOff, -SlideOff, SlideOff, SlideOff);
    return area.contains(position);
}

bool TPushButton::IsHeld() const
{
    return m_Pressed;
}

void TPushButton::ClearHeld()
{
    m_Pressed = false;
}

void TPushButton::paintEvent(QPaintEvent*)
{
    FollowOpacity();
    QPainter painter(this);
    if (IsComposed())
    {
        painter.drawPixmap(0, 0, *m_Composed);
    }
    else
    {
        PaintBackground(painter);
        ChangeOpacity(painter, isEnabled() ? 1.0F : m_ForegroundDisabledOpacity);
        PaintForeground(painter);
    }
    RenderToolTipMark(painter);
}

void TPushButton::PaintBackgroundAndIcons(QPainter& painter)
{
    FollowOpacity();
    PaintBackground(painter);
    ChangeOpacity(painter, isEnabled() ? 1.0F : m_ForegroundDisabledOpacity);
    PaintIcons(painter);
}

void TPushButton::PaintAsFirstLine(QPainter& painter, QRect const& rect, QString const& text) const
{
    PaintLine(painter, m_Lines[0], rect, text);
}

void TPushButton::PaintForeground(QPainter& painter) const
{
    PaintIcons(painter);
    PaintLine(painter, m_Lines[0], m_Lines[0].rect, GetText());
    PaintLine(painter, m_Lines[1], m_Lines[1].rect, DrawnSecondLine());
}

// Whether the button has what it shows now in one picture. That is made when it is painted a second time
// without a change, so that a change is not paid for twice, and only where painting it gives the same pixels.
bool TPushButton::IsComposed()
{
    TFace const* const face =
        isEnabled() && !m_FlatColour && m_BackgroundOpacity >= 1.0F ? VisibleFace() : nullptr;
    if (!face || !(m_Icon || m_RightSideIcon || HasText()))
        return false;
    auto const keyOf = [](QSharedPointer<QPixmap> const& pixmap) { return pixmap ? pixmap->cacheKey() : 0; };
    TLook const look{keyOf(face->shown), keyOf(m_Icon), keyOf(m_RightSideIcon), text()};
    if (!(look == m_ComposedLook))
    {
        bool const again = look == m_SeenLook;
        m_SeenLook = look;
        if (!again)
            return false;
        m_ComposedLook = look;
        m_Composed = Compose(*face);
    }
    return bool(m_Composed);
}

// Null where it would be too large, or would differ from the parts painted one by one: that is, where a part
// lies on pixels that what is behind the button shines through.
std::unique_ptr<QPixmap> TPushButton::Compose(TFace const& face) const
{
    if (width() * height() > LargestComposedArea)
        return nullptr;
    if (!face.opaque)
    {
        QImage foreground(size(), QImage::Format_ARGB32_Premultiplied);
        foreground.fill(Qt::transparent);
        QPainter painter(&foreground);
        PaintForeground(painter);
        painter.end();
        if (!LiesOnOpaquePixels(foreground, face.shown->toImage()))
            return nullptr;
    }
    auto composed = std::make_unique<QPixmap>(*face.shown);
    QPainter painter(composed.get());
    PaintForeground(painter);
    return composed;
}

void TPushButton::ForgetComposed()
{
    if (m_SeenLook.face == 0)
        return;
    m_SeenLook = TLook();
    m_ComposedLook = TLook();
    m_Composed.reset();
}

// A press that has no selected background is not dimmed, on purpose: the state is to be drawn by the art
// alone.
void TPushButton::PaintBackground(QPainter& painter) const
{
    ChangeOpacity(painter, BackgroundOpacity());
    if (m_FlatColour)
        KVN::RenderUtils::RenderButton(&painter, rect(), FlatColour(), true, sunkenFrameHighlightColor,
                                       sunkenFrameShadowColor);
    else if (TFace const* const face = VisibleFace())
        painter.drawPixmap(0, 0, *face->shown);
}

void TPushButton::PaintIcons(QPainter& painter) const
{
    QSharedPointer<QPixmap> const& icon = !isEnabled() && IsUsable(m_DisabledIcon) ? m_DisabledIcon : m_Icon;
    if (IsUsable(icon))
        painter.drawPixmap(GetIconLeftPosition(), GetIconTopPosition(), *icon);
    if (IsUsable(m_RightSideIcon))
        painter.drawPixmap(width() - 1 - m_RightSideIcon->width() - m_RightSideIconMargin,
                           (height() - m_RightSideIcon->height()) / 2, *m_RightSideIcon);
}

void TPushButton::PaintLine(QPainter& painter, TTextLine const& line, QRect const& rect,
                            QString const& text) const
{
    if (!line.font || text.isEmpty())
        return;
    bool const centred = (line.alignment & Qt::AlignHCenter) != 0 && (line.alignment & Qt::AlignLeft) == 0;
    KVN::RenderUtils::RenderElidedTextInsideRect(&painter, *line.font, rect, text, line.font->pixelSize(),
                                                 MINIMUM_FONT_SIZE, line.colour, line.wrap, line.shadow,
                                                 centred);
}

void TPushButton::RenderToolTipMark(QPainter& painter)
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    if (!pixmaps || !ExplainsItself())
        return;
    bool const shown = MorvanePlatformInterface::Instance()->IsToolTipShownFor(this);
    ChangeOpacity(painter, 1.0F);
    painter.drawPixmap(m_ToolTipMarkOffset, *pixmaps->GetPixmap(shown ? PixmapNames::ToolTipMarkSelected
                                                                      : PixmapNames::ToolTipMark));
}
