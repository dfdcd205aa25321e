#include "OVP_PropertyPage.h"

namespace OVP {

PropertyPage::PropertyPage(QObject * parent) :
	QObject(parent)
{
	connect(&m_properties, &QPB::PropertyModel::valueEditRequested, this, &PropertyPage::onEditRequested);
}

} // namespace OVP
