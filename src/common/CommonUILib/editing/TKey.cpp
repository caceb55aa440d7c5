#include "TKey.h"

#include "MainScreen.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr int LargeFontSize = 30;
constexpr int SmallFontSize = 24;
// No display is larger, and twice as much is still a place that widgets can have.
constexpr int LargestSide = 32767;

QString NameOf(QChar character)
{
    return character == QLatin1Char(' ') ? QStringLiteral("Key Space")
                                         : QStringLiteral("Key %1").arg(character);
}

int HeldToWidgets(qint64 pixels)
{
    return int(qBound(qint64(-LargestSide), pixels, qint64(LargestSide)));
}
} // namespace

TKey::TKey(QWidget* parent, QChar const& character, QString const& iconName, bool useIcon, bool large,
           int rows, int columns, int id)
    : TPushButton(parent, id, QString())
    , m_LargeFont(large)
{
    // What is typed goes to where the focus is.
    setFocusPolicy(Qt::NoFocus);
    SetRowsAndColumns(rows, columns);
    SetFontProperties(regularButtonTextColor, large ? LargeFontSize : SmallFontSize, true, false, false,
                      Qt::AlignCenter, false);
    SetLook(PixmapNames::ButtonBlank, PixmapNames::StandardButtonSelected);
    SetBackgroundDisabled(PixmapNames::ButtonDisabled);
    if (useIcon)
        TKey::SetIcon(iconName, QSize(-1, -1), true);
    else if (!character.isNull())
        TKey::SetText(QString(character), NameOf(character), true, QString(), false);
    SetCharacter(character);
}

TKey::~TKey() = default;

QChar TKey::GetCharacter() const
{
    return m_Character;
}

QString TKey::GetIconName() const
{
    return m_IconName;
}

bool TKey::GetIsEditKey() const
{
    return m_IsEditKey;
}

void TKey::SetIsEditKey(bool isEditKey)
{
    m_IsEditKey = isEditKey;
}

void TKey::SetRowsAndColumns(int rows, int columns)
{
    m_Rows = qMax(1, rows);
    m_Columns = qMax(1, columns);
}

int TKey::GetRows() const
{
    return m_Rows;
}

int TKey::GetColumns() const
{
    return m_Columns;
}

void TKey::SetCustomSize(int span, int width, int height, int border)
{
    m_UnitWidth = qBound(1, width, LargestSide);
    m_UnitHeight = qBound(1, height, LargestSide);
    m_Border = border;
    QSize const wanted(qBound(1, span, LargestSide / m_UnitWidth) * m_UnitWidth, m_UnitHeight);
    if (wanted != size() || wanted != minimumSize())
        setFixedSize(wanted);
}

void TKey::SetPosition(int row, int column, bool halfStep)
{
    qint64 const x = qint64(column) * m_UnitWidth + (halfStep ? m_UnitWidth / 2 : 0);
    qint64 const y = m_Border + qint64(row) * m_UnitHeight;
    move(HeldToWidgets(x), HeldToWidgets(y));
}

void TKey::SetPosition(int index)
{
    SetPosition(index / m_Columns, index % m_Columns, false);
}

void TKey::SetLargeFont(bool large)
{
    if (large == m_LargeFont)
        return;
    m_LargeFont = large;
    ForgetPictures();
    SetFontSize(large ? LargeFontSize : SmallFontSize, false);
}

void TKey::SetLook(QString const& normal, QString const& down)
{
    if (normal == m_NormalLook && down == m_DownLook)
        return;
    m_NormalLook = normal;
    m_DownLook = down;
    ForgetPictures();
    FollowLook();
}

void TKey::SetPressVisible(bool visible)
{
    if (visible == m_PressVisible)
        return;
    m_PressVisible = visible;
    SetUseDefaultMMIHighlight(!visible);
    FollowLook();
    update();
}

// A press shows by the skin alone: with one skin for both there is nothing to see.
void TKey::FollowLook()
{
    SetBackground(m_NormalLook);
    SetBackgroundSelected(m_PressVisible ? m_DownLook : m_NormalLook);
    FollowGround();
}

void TKey::FollowGround()
{
    setAttribute(Qt::WA_OpaquePaintEvent, !m_Ground.isNull());
}

void TKey::SetGround(QPixmap const& ground)
{
    if (ground.isNull() && m_Ground.isNull())
        return;
    // Without an alpha channel it is copied where it would be blended.
    m_Ground = QPixmap::fromImage(ground.toImage().convertToFormat(QImage::Format_RGB32));
    FollowGround();
    ForgetPictures();
    update();
}

void TKey::PrepareFaces(QString const& one, QString const& other)
{
    std::array<TFacePicture, 2> faces;
    std::array<QString, 2> const texts = {one, other};
    for (std::size_t i = 0; i < faces.size(); ++i)
    {
        auto const* const made = std::find_if(m_Faces.begin(), m_Faces.end(),
                                              [&](TFacePicture const& face)
                                              { return !face.picture.isNull() && face.text == texts[i]; });
        faces[i] = {texts[i], made != m_Faces.end() ? made->picture : MakePicture(texts[i])};
    }
    m_Faces = faces;
}

// Null without a ground, and for a key that is not opaque there.
QPixmap TKey::MakePicture(QString const& text)
{
    if (m_Ground.isNull() || m_Ground.size() != size() || text.isEmpty() || !IsPlain())
        return {};
    QPixmap picture = m_Ground.copy();
    QPainter painter(&picture);
    PaintBackgroundAndIcons(painter);
    PaintAsFirstLine(painter, GetFirstLineRect(), text);
    return picture;
}

void TKey::ForgetPictures()
{
    m_Faces = {};
}

// Whether the key shows nothing but its normal background and its text.
bool TKey::IsPlain() const
{
    return isEnabled() && !isChecked() && (!m_PressVisible || (!isDown() && !m_Highlighted));
}

void TKey::SetText(QString text, QString objectName, bool enable, QString secondLine, bool useSecondLine)
{
    SetCharacter(text.isEmpty() ? QChar() : text.at(0));
    // One character stands where another stood: a keyboard changes fifty, and none need be laid out anew.
    bool const isLaidOut = text.size() == 1 && GetText().size() == 1 && !enable && objectName.isEmpty() &&
                           !useSecondLine && !m_HasSecondLine;
    m_HasSecondLine = useSecondLine;
    if (!isLaidOut || !GetFirstLineRect().isValid())
    {
        TPushButton::SetText(text, objectName, enable, secondLine, useSecondLine);
        return;
    }
    QAbstractButton& withoutLayout = *this;
    withoutLayout.setText(text);
}

void TKey::SetCharacter(QChar character)
{
    if (character == m_Character)
        return;
    m_Character = character;
    if (!character.isNull())
        setObjectName(NameOf(character));
}

void TKey::SetIcon(QString const& name, QSize const& size, bool enable)
{
    m_IconName = name;
    TPushButton::SetIcon(name, size, enable);
}

void TKey::ShowToolTip()
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    if (pixmaps && !m_IconName.isEmpty())
        SetToolTipIcon(*pixmaps->GetIcon(m_IconName, KVN::ICON_NORMAL));
    TPushButton::ShowToolTip();
}

void TKey::OnMMIHighlight()
{
    m_Highlighted = true;
    TPushButton::OnMMIHighlight();
}

void TKey::OnMMIUnHighlight()
{
    m_Highlighted = false;
    TPushButton::OnMMIUnHighlight();
}

bool TKey::event(QEvent* event)
{
    bool const taken = TPushButton::event(event);
    // A style takes every button for one that does not cover what is below it.
    if (event->type() == QEvent::Polish)
        FollowGround();
    return taken;
}

void TKey::paintEvent(QPaintEvent* event)
{
    if (m_Ground.isNull())
    {
        TPushButton::paintEvent(event);
        return;
    }
    auto const* const face = std::find_if(m_Faces.begin(), m_Faces.end(),
                                          [this](TFacePicture const& made)
                                          { return !made.picture.isNull() && made.text == text(); });
    {
        QPainter painter(this);
        if (face != m_Faces.end() && IsPlain())
        {
            painter.drawPixmap(0, 0, face->picture);
            RenderToolTipMark(painter);
            return;
        }
        painter.drawPixmap(0, 0, m_Ground);
    }
    TPushButton::paintEvent(event);
}

void TKey::resizeEvent(QResizeEvent* event)
{
    ForgetPictures();
    TPushButton::resizeEvent(event);
}
