#include "Sci_ChartStyleFile.h"

#include <exception>

#include <tinyxml.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "Sci_AbstractBarSeriesModel.h"
#include "Sci_AbstractColorGridSeriesModel.h"
#include "Sci_AbstractLineSeriesModel.h"
#include "Sci_AbstractVectorFieldSeriesModel.h"
#include "Sci_XMLFile.h"

namespace SCI {

const char * const ChartStyleFile::EXTENSION = ".o2style";
const char * const ChartStyleFile::APPLY_ERROR_TEXT = "Error applying chart style from file";

namespace {

/*! Sets the write-all flag of a model for its lifetime and restores it afterwards. */
class WriteAllGuard {
public:
	explicit WriteAllGuard(AbstractChartModel & model) : m_model(model), m_previous(model.writeAll()) {
		m_model.setWriteAll(true);
	}
	~WriteAllGuard() { m_model.setWriteAll(m_previous); }
	WriteAllGuard(const WriteAllGuard &) = delete;
	WriteAllGuard & operator=(const WriteAllGuard &) = delete;
private:
	AbstractChartModel &	m_model;
	bool					m_previous;
};

} // namespace


void ChartStyleFile::save(AbstractChartModel & model, const QString & path) {
	FUNCID(ChartStyleFile::save);
	TiXmlDocument doc;
	TiXmlElement * root = XMLFile::createDocument(doc, "OrvaneStyle", "Orvane.xsd");
	TiXmlElement * chartModel = new TiXmlElement("ChartModel");
	root->LinkEndChild(chartModel);
	chartModel->SetAttribute("chartType", chartType(model));
	{
		WriteAllGuard guard(model);
		model.writeXML(chartModel);
	}
	XMLFile::save(doc, path, FUNC_ID);
}


void ChartStyleFile::apply(AbstractChartModel & model, const QString & path) {
	FUNCID(ChartStyleFile::apply);
	try {
		TiXmlDocument doc;
		XMLFile::load(doc, path, "Error in line %1 of project file '%2':\n%3", FUNC_ID);
		const TiXmlElement * root = doc.RootElement();
		if (root == nullptr || root->ValueStr() != "OrvaneStyle")
			throw ZEB::Exception("Expected OrvaneStyle as root node in XML file.", FUNC_ID);
		const TiXmlElement * chartModel = root->FirstChildElement("ChartModel");
		if (chartModel == nullptr || chartModel->Attribute("chartType") == nullptr)
			throw ZEB::Exception("Expected 'chartType' attribute in ChartModel tag.", FUNC_ID);
		const std::string styleType = chartModel->Attribute("chartType");
		if (styleType != chartType(model))
			throw ZEB::Exception(ZEB::MessageFormat("The style belongs to a chart of type '%1' and does not fit this chart "
													"of type '%2'.").arg(styleType).arg(chartType(model)), FUNC_ID);
		model.readXML(chartModel);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, APPLY_ERROR_TEXT, FUNC_ID);
	}
	catch (std::exception & ex) {
		throw ZEB::Exception(ex, APPLY_ERROR_TEXT, FUNC_ID);
	}
}


const char * ChartStyleFile::chartType(const AbstractChartModel & model) {
	if (dynamic_cast<const AbstractColorGridSeriesModel *>(&model) != nullptr)
		return "3D";
	if (dynamic_cast<const AbstractVectorFieldSeriesModel *>(&model) != nullptr)
		return "Vector";
	if (dynamic_cast<const AbstractBarSeriesModel *>(&model) != nullptr)
		return "Bar";
	return "2D";
}

} // namespace SCI
