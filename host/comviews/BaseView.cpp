#include "BaseView.h"

#include "UIManager.h"

// A view covers the head unit's whole system view.
BaseView::BaseView(QString name, QWidget* parent)
    : QWidget(parent)
    , m_name(std::move(name))
{
    setGeometry(hvappframework::UIManager::getSystemViewRect());
}

BaseView::~BaseView() = default;
