#include "OVP_PropertyPanel.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <QPB_PropertyModel.h>
#include <QPB_PropertyView.h>

#include "OVP_Mapper.h"
#include "OVP_PropertyPage.h"
#include "OVP_PropertyPageList.h"

namespace OVP {

PropertyPanel::PropertyPanel(QWidget * parent) :
	QWidget(parent),
	m_chooser(new QComboBox(this)),
	m_view(new QPB::PropertyView(this)),
	m_message(new QLabel(this)),
	m_empty(new QPB::PropertyModel(this))
{
	m_message->setWordWrap(true);
	m_message->setStyleSheet("color: #b00000;");
	m_message->hide();
	m_view->setModel(m_empty);
	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->setContentsMargins(0, 0, 0, 0);
	layout->addWidget(m_chooser);
	layout->addWidget(m_view, 1);
	layout->addWidget(m_message);
	connect(m_chooser, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &PropertyPanel::showPage);
	setEnabled(false);
}


PropertyPanel::~PropertyPanel() = default;


void PropertyPanel::setMapper(Mapper * mapper) {
	if (mapper != nullptr && mapper->chartModel() == nullptr)
		mapper = nullptr;
	if (mapper == m_mapper && (mapper == nullptr) == (m_pages == nullptr))
		return;
	const SCI::ChartElement previous = m_currentElement;
	if (m_mapper != nullptr)
		disconnect(m_mapper, nullptr, this, nullptr);
	m_mapper = mapper;
	m_pages.reset();
	if (mapper != nullptr) {
		m_pages.reset(new PropertyPageList(*mapper));
		connect(m_pages.get(), &PropertyPageList::pagesChanged, this, [this]() {
			fillChooser(m_currentElement);
		});
		connect(m_pages.get(), &PropertyPageList::titlesChanged, this, [this]() {
			for (int i = 0; i < m_pages->count(); ++i)
				m_chooser->setItemText(i, m_pages->title(i));
		});
		// a deleted chart takes its pages along
		connect(mapper, &QObject::destroyed, this, [this]() { setMapper(nullptr); });
	}
	fillChooser(previous);
}


bool PropertyPanel::showElement(const SCI::ChartElement & element) {
	const int index = m_pages == nullptr ? -1 : m_pages->indexOf(element);
	if (index < 0)
		return false;
	m_chooser->setCurrentIndex(index);
	return true;
}


PropertyPage * PropertyPanel::currentPage() const {
	return m_current;
}


QString PropertyPanel::message() const {
	return m_message->text();
}


void PropertyPanel::fillChooser(SCI::ChartElement element) {
	m_current = nullptr;
	{
		const QSignalBlocker blocker(m_chooser);
		m_chooser->clear();
		if (m_pages != nullptr)
			for (int i = 0; i < m_pages->count(); ++i)
				m_chooser->addItem(m_pages->title(i));
	}
	setEnabled(m_pages != nullptr);
	const int index = m_pages == nullptr ? -1 : m_pages->indexOf(element);
	m_chooser->setCurrentIndex(-1);
	if (m_pages != nullptr)
		m_chooser->setCurrentIndex(index < 0 ? 0 : index);
	else
		showPage(-1);
}


void PropertyPanel::showPage(int index) {
	setMessage(QString());
	if (m_current != nullptr)
		disconnect(m_current, &PropertyPage::editRefused, this, &PropertyPanel::setMessage);
	if (m_pages == nullptr || index < 0 || index >= m_pages->count()) {
		m_current = nullptr;
		m_view->setModel(m_empty);
		return;
	}
	m_current = m_pages->page(index);
	m_currentElement = m_pages->element(index);
	m_view->setModel(&m_current->properties());
	connect(m_current, &PropertyPage::editRefused, this, &PropertyPanel::setMessage);
}


void PropertyPanel::setMessage(const QString & text) {
	m_message->setText(text);
	m_message->setVisible(!text.isEmpty());
}

} // namespace OVP
