#include "BaseView.h"

BaseView::BaseView(QString name, QWidget* parent)
    : QWidget(parent)
    , m_name(std::move(name))
{
}

BaseView::~BaseView() = default;
