#include "TEditContainer.h"

void EditContainerAssertion::RequireIndex(int index, int line)
{
    if (index < 0)
        qt_assert("index >= 0", "src/common/CommonUILib/TEditContainer", line);
}

QString const TEditContainerQString::m_default;

QString TEditContainerQString::Default() const
{
    return m_default;
}

bool TEditContainerBool::Default() const
{
    return m_Default;
}
