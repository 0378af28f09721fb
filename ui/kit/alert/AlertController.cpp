#include "ui/kit/alert/AlertController.h"

namespace kit {

AlertAction::AlertAction(const QString& title, Style style, std::function<void()> handler, QObject* parent)
    : QObject(parent)
    , m_title(title)
    , m_handler(std::move(handler))
    , m_style(style)
{
}

void AlertAction::perform() const
{
    if (m_handler)
        m_handler();
}

void AlertTextField::setText(const QString& text)
{
    if (m_text == text)
        return;
    m_text = text;
    Q_EMIT textChanged();
}

int AlertTextField::inputHints() const
{
    Qt::InputMethodHints hints = Qt::ImhNone;
    hints.setFlag(Qt::ImhUrlCharactersOnly, m_keyboard == Keyboard::URL);
    hints.setFlag(Qt::ImhNoAutoUppercase, m_autocapitalization == Autocapitalization::None);
    hints.setFlag(Qt::ImhNoPredictiveText, m_autocorrection == Autocorrection::No);
    return static_cast<int>(hints.toInt());
}

AlertController::AlertController(const QString& title, const QString& message, Style style)
    : m_title(title)
    , m_message(message)
    , m_style(style)
{
}

void AlertController::addAction(const QString& title, AlertAction::Style style, std::function<void()> handler)
{
    m_actions.append(new AlertAction(title, style, std::move(handler), this));
    Q_EMIT contentChanged();
}

AlertTextField* AlertController::addTextField()
{
    auto* field = new AlertTextField(this);
    m_textFields.append(field);
    Q_EMIT contentChanged();
    return field;
}

void AlertController::setSource(View* view, std::function<QRectF()> rect)
{
    m_sourceView = view;
    m_sourceRect = std::move(rect);
    for (View* moving = view; moving; moving = moving->superview()) {
        connect(moving, &View::frameChanged, this, &AlertController::anchorChanged);
        connect(moving, &View::contentOriginChanged, this, &AlertController::anchorChanged);
    }
    Q_EMIT anchorChanged();
}

QRectF AlertController::anchor() const
{
    if (!m_sourceView)
        return {};
    const QRectF shown{ m_sourceView->contentOrigin(), m_sourceView->frame().size() };
    const QRectF rect = m_sourceRect ? m_sourceRect() & shown : shown;
    return { m_sourceView->convertPointToView(rect.topLeft(), nullptr), rect.size() };
}

void AlertController::choose(int action)
{
    if (m_dismissed || action < 0 || action >= m_actions.size())
        return;
    m_dismissed = true;
    Q_EMIT dismissed();
    m_actions.at(action)->perform();
}

void AlertController::confirm()
{
    for (auto action = static_cast<int>(m_actions.size()) - 1; action >= 0; --action)
        if (m_actions.at(action)->style() == AlertAction::Style::Default || m_actions.size() == 1)
            return choose(action);
}

void AlertController::cancel()
{
    for (int action = 0; action < m_actions.size(); ++action)
        if (m_actions.at(action)->isCancel() || m_actions.size() == 1)
            return choose(action);
}

} // namespace kit
