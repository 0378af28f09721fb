#include "ui/kit/navigation/ViewController.h"

#include "ui/kit/alert/AlertController.h"

namespace kit {

ViewController::ViewController(QObject* parent)
    : QObject(parent)
{
}

View* ViewController::loadView()
{
    return new View;
}

View* ViewController::view()
{
    if (!m_view) {
        m_view = loadView();
        m_view->setParent(this);
        viewDidLoad();
    }
    return m_view;
}

void ViewController::present(AlertController* alert)
{
    for (QObject* ancestor = this; ancestor; ancestor = ancestor->parent())
        if (auto* presenter = dynamic_cast<AlertPresenter*>(ancestor))
            return presenter->presentAlert(alert);
    delete alert;
}

void ViewController::layOut(const QRectF& frame)
{
    view()->setFrame(frame);
    viewDidLayoutSubviews();
}

void ViewController::beginAppearance()
{
    if (m_appearance == Appearance::Appearing || m_appearance == Appearance::There)
        return;
    view();
    m_appearance = Appearance::Appearing;
    viewWillAppear();
}

void ViewController::endAppearance()
{
    if (m_appearance != Appearance::Appearing)
        return;
    m_appearance = Appearance::There;
    viewDidAppear();
}

void ViewController::beginDisappearance()
{
    if (m_appearance == Appearance::Disappearing || m_appearance == Appearance::Gone)
        return;
    m_appearance = Appearance::Disappearing;
    viewWillDisappear();
}

void ViewController::endDisappearance()
{
    if (m_appearance != Appearance::Disappearing)
        return;
    m_appearance = Appearance::Gone;
    viewDidDisappear();
}

} // namespace kit
