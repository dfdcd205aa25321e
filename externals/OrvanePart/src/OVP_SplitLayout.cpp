#include "OVP_SplitLayout.h"

#include <QString>

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

namespace OVP {

namespace {

/*! Parses a whole text as an integer; throws with the given description of its origin otherwise. */
int parseInt(const char * text, const std::string & what, const char * funcId) {
	bool ok = false;
	const int value = text == nullptr ? 0 : QString::fromUtf8(text).trimmed().toInt(&ok);
	if (!ok)
		throw ZEB::Exception(ZEB::MessageFormat("Missing or invalid integer value of %1.").arg(what), funcId);
	return value;
}

/*! Names of the Widget attributes, in the order they are written. */
const char * const WIDGET_ATTRIBUTES[] = { "id", "parent", "viewTable", "mapperIndex", "size1", "size2", "orientation" };

} // namespace


bool SplitLayout::Widget::operator==(const Widget & other) const {
	return m_id == other.m_id && m_parent == other.m_parent && m_viewTable == other.m_viewTable
			&& m_mapperIndex == other.m_mapperIndex && m_size1 == other.m_size1 && m_size2 == other.m_size2
			&& m_orientation == other.m_orientation;
}


void SplitLayout::readXML(const TiXmlElement * element) {
	FUNCID(SplitLayout::readXML);
	QList<Widget> widgets;
	int focused = 0;
	for (const TiXmlElement * e = element->FirstChildElement(); e != nullptr; e = e->NextSiblingElement()) {
		const std::string & name = e->ValueStr();
		if (name == "Widget") {
			int values[7];
			for (int i = 0; i < 7; ++i)
				values[i] = parseInt(e->Attribute(WIDGET_ATTRIBUTES[i]),
									 std::string("attribute '") + WIDGET_ATTRIBUTES[i] + "' of 'Widget'", FUNC_ID);
			Widget w;
			w.m_id = values[0];
			w.m_parent = values[1];
			w.m_viewTable = values[2] != 0;
			w.m_mapperIndex = values[3];
			w.m_size1 = values[4];
			w.m_size2 = values[5];
			w.m_orientation = values[6];
			widgets.append(w);
		}
		else if (name == "FocusedWidget") {
			focused = parseInt(e->GetText(), "'FocusedWidget'", FUNC_ID);
		}
		else {
			throw ZEB::Exception(ZEB::MessageFormat("Unknown/invalid xml tag '%1' in Splitting section.").arg(name), FUNC_ID);
		}
	}
	m_widgets = widgets;
	m_focusedWidget = focused;
}


void SplitLayout::writeXML(TiXmlElement * parent) const {
	TiXmlElement * splitting = new TiXmlElement("Splitting");
	parent->LinkEndChild(splitting);
	for (const Widget & w : m_widgets) {
		TiXmlElement * e = new TiXmlElement("Widget");
		splitting->LinkEndChild(e);
		const int values[7] = { w.m_id, w.m_parent, w.m_viewTable ? 1 : 0, w.m_mapperIndex, w.m_size1, w.m_size2,
								w.m_orientation };
		for (int i = 0; i < 7; ++i)
			e->SetAttribute(WIDGET_ATTRIBUTES[i], values[i]);
	}
	TiXmlElement * focused = new TiXmlElement("FocusedWidget");
	splitting->LinkEndChild(focused);
	focused->LinkEndChild(new TiXmlText(std::to_string(m_focusedWidget)));
}


void SplitLayout::mappersRemoved(int first, int count) {
	for (Widget & w : m_widgets) {
		if (w.m_mapperIndex >= first + count)
			w.m_mapperIndex -= count;
		else if (w.m_mapperIndex >= first)
			w.m_mapperIndex = -1;
	}
}


void SplitLayout::mappersRenumbered(const std::vector<int> & newIndex) {
	for (Widget & w : m_widgets)
		if (w.m_mapperIndex >= 0 && w.m_mapperIndex < static_cast<int>(newIndex.size()))
			w.m_mapperIndex = newIndex[static_cast<std::size_t>(w.m_mapperIndex)];
}

} // namespace OVP
