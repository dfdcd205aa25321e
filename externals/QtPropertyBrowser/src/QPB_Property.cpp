#include "QPB_Property.h"

#include <ZEB_Exception.h>

#include "QPB_PropertyModel.h"
#include "QPB_ValueType.h"
#include "QPB_ValueTypeFactory.h"

namespace QPB {

Property::Property(const QString & name) :
	m_name(name)
{
}


Property::Property(const QString & name, const QString & typeId, const QVariant & value) :
	m_name(name),
	m_value(value)
{
	FUNCID(Property::Property);
	m_type = ValueTypeFactory::instance().type(typeId);
	if (m_type == nullptr)
		throw ZEB::Exception("Unknown property value type '" + typeId.toStdString() + "' of property '"
							 + name.toStdString() + "'.", FUNC_ID);
	m_type->createSubProperties(*this);
	updateSubProperties();
}


Property::~Property() = default;


void Property::setName(const QString & name) {
	m_name = name;
	notifyChanged();
}


void Property::setToolTip(const QString & toolTip) {
	m_toolTip = toolTip;
	notifyChanged();
}


void Property::setEnabled(bool enabled) {
	m_enabled = enabled;
	if (m_model != nullptr)
		m_model->subtreeChanged(this);
}


bool Property::isEffectivelyEnabled() const {
	for (const Property * p = this; p != nullptr; p = p->m_parent)
		if (!p->m_enabled)
			return false;
	return true;
}


void Property::setValue(const QVariant & value) {
	m_value = value;
	updateSubProperties();
	notifyChanged();
}


void Property::setDefaultValue(const QVariant & value) {
	m_defaultValue = value;
	notifyChanged();
}


bool Property::isModified() const {
	return m_defaultValue.isValid() && m_value != m_defaultValue;
}


QVariant Property::attribute(const QString & key, const QVariant & defaultValue) const {
	return m_attributes.value(key, defaultValue);
}


void Property::setAttribute(const QString & key, const QVariant & value) {
	m_attributes.insert(key, value);
	updateSubProperties();
	notifyChanged();
}


int Property::row() const {
	if (m_parent == nullptr)
		return 0;
	for (size_t i = 0; i < m_parent->m_children.size(); ++i)
		if (m_parent->m_children[i].get() == this)
			return static_cast<int>(i);
	return 0;
}


Property * Property::addChild(std::unique_ptr<Property> child) {
	Property * p = child.get();
	const int row = childCount();
	if (m_model != nullptr)
		m_model->beginInsertChild(this, row);
	p->m_parent = this;
	m_children.push_back(std::move(child));
	if (m_model != nullptr) {
		p->setModel(m_model);
		m_model->endInsertChild();
	}
	return p;
}


Property * Property::addGroup(const QString & name) {
	return addChild(std::unique_ptr<Property>(new Property(name)));
}


Property * Property::addChild(const QString & name, const QString & typeId, const QVariant & value) {
	return addChild(std::unique_ptr<Property>(new Property(name, typeId, value)));
}


void Property::clearChildren() {
	int first = 0;
	while (first < childCount() && child(first)->m_subProperty)
		++first;
	if (first == childCount())
		return;
	if (m_model != nullptr)
		m_model->beginRemoveChildren(this, first, childCount() - 1);
	m_children.erase(m_children.begin() + first, m_children.end());
	if (m_model != nullptr)
		m_model->endRemoveChildren();
}


void Property::setModel(PropertyModel * model) {
	m_model = model;
	for (const std::unique_ptr<Property> & c : m_children)
		c->setModel(model);
}


void Property::notifyChanged() {
	if (m_model != nullptr)
		m_model->propertyChanged(this);
}


void Property::updateSubProperties() {
	if (m_type != nullptr && !m_children.empty())
		m_type->updateSubProperties(*this);
}

} // namespace QPB
