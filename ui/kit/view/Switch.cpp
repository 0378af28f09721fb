#include "ui/kit/view/Switch.h"

namespace kit {

Switch::Switch(QObject* parent)
    : View({ 0, 0, 51, 31 }, parent)
{
}

void Switch::setOn(bool on)
{
    if (m_on == on)
        return;
    m_on = on;
    Q_EMIT onChanged();
}

void Switch::toggle()
{
    setOn(!m_on);
    if (m_valueChanged)
        m_valueChanged(this);
}

} // namespace kit
