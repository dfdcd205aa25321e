#include "OVP_ChartCreator.h"

#include <QDir>

#include <tinyxml.h>

#include <ZEB_Exception.h>

#include "OVP_MapperTreeModel.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"
#include "OVP_SeriesBarExtractorModel.h"
#include "OVP_UserInteraction.h"

namespace OVP {

ChartCreator::ChartCreator(ProjectHandler & handler, UserInteraction & userInteraction, QWidget * dialogParent) :
	m_handler(handler),
	m_userInteraction(userInteraction),
	m_dialogParent(dialogParent)
{
}


int ChartCreator::createChart(const DataSetOptions & options) {
	FUNCID(ChartCreator::createChart);
	try {
		if (!m_handler.isValid())
			throw ZEB::Exception("No session is open.", FUNC_ID);
		const std::vector<DataSetOptions::Series> series = options.series();
		const DataSetOptions::Series & first = series.front();
		std::unique_ptr<Mapper> mapper = Mapper::createNewMapper(m_handler.dataManager(), first.m_dataSets,
			first.m_modelType, first.m_modelParameter, first.m_manipulators, options.mapperKind());
		// the bars' unit follows the statistic, and further series must fit it
		if (mapper->type() == Mapper::MT_Bar)
			static_cast<SeriesBarExtractorModel &>(*mapper->chartModel()).setAggregation(options.barAggregation());
		addSeries(*mapper, series, 1);
		m_handler.addMapper(std::move(mapper));
	}
	catch (ZEB::Exception & ex) {
		showFailure(tr("Cannot create chart"), ex);
		return -1;
	}
	return m_handler.project().mapperModel()->mapperCount() - 1;
}


bool ChartCreator::addToChart(int mapperIndex, const DataSetOptions & options) {
	FUNCID(ChartCreator::addToChart);
	try {
		if (!m_handler.isValid() || mapperIndex < 0 || mapperIndex >= m_handler.project().mapperModel()->mapperCount())
			throw ZEB::Exception("There is no chart to add the data sets to.", FUNC_ID);
		Mapper & mapper = *m_handler.project().mapperModel()->mapper(mapperIndex);
		const std::vector<DataSetOptions::Series> series = options.series();
		if (series.size() > 1) {
			// a later series may be refused after earlier ones were added: try all on a copy first
			TiXmlElement element("Mapper");
			const QString anyDir = QDir::rootPath();
			mapper.writeXML(&element, anyDir, true);
			Mapper copy(m_handler.dataManager());
			copy.readXML(&element, anyDir);
			addSeries(copy, series);
		}
		addSeries(mapper, series);
		m_handler.mapperContentChanged(mapperIndex);
	}
	catch (ZEB::Exception & ex) {
		showFailure(tr("Cannot add to chart"), ex);
		return false;
	}
	return true;
}


void ChartCreator::addSeries(Mapper & mapper, const std::vector<DataSetOptions::Series> & series, std::size_t first) {
	for (std::size_t i = first; i < series.size(); ++i)
		mapper.addExtractor(series[i].m_dataSets, series[i].m_modelType, series[i].m_modelParameter,
							series[i].m_manipulators);
}


void ChartCreator::showFailure(const QString & title, const ZEB::Exception & ex) const {
	ex.reportAllAsErrors();
	m_userInteraction.showCritical(m_dialogParent, title, exceptionText(ex));
}

} // namespace OVP
