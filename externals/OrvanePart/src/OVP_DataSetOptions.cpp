#include "OVP_DataSetOptions.h"

#include <algorithm>

#include <DATAIO_DataIO.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_DataCollection.h"
#include "OVP_DataCollectionReader.h"
#include "OVP_DataManager.h"
#include "OVP_UserInteraction.h"

namespace OVP {

DataSetOptions::DataSetOptions(DataManager & dataManager, QObject * parent) :
	QObject(parent),
	m_dataManager(dataManager)
{
}


DataSetOptions::~DataSetOptions() = default;


void DataSetOptions::setSelection(const std::vector<Mapper::DataSet> & dataSets) {
	m_selection = dataSets;
	m_dataIOs.clear();
	m_referenceDataSets.clear();
	m_cut.reset();
	m_message.clear();
	try {
		classifySelection();
	}
	catch (ZEB::Exception & ex) {
		m_kind = SK_Unsupported;
		m_message = exceptionText(ex);
		m_referenceDataSets.clear();
		m_cut.reset();
	}
	emit structureChanged();
}


void DataSetOptions::classifySelection() {
	FUNCID(DataSetOptions::setSelection);
	m_kind = SK_None;
	if (m_selection.empty())
		return;
	bool all2D = true;
	for (const Mapper::DataSet & ds : m_selection) {
		m_dataIOs.push_back(m_dataManager.container(ds.m_fileName));
		// the file may have changed since the table listed it
		try {
			DataCollectionReader::checkHeader(*m_dataIOs.back());
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, ZEB::MessageFormat("File '%1' holds no data set that can be shown.")
								 .arg(ds.m_fileName.toStdString()), FUNC_ID);
		}
		all2D = all2D && m_dataIOs.back()->dataFormat() == DATAIO::DataIO::DF_2D;
	}
	if (all2D) {
		listReferenceDataSets();
		m_kind = seriesKind();
		return;
	}
	if (m_selection.size() > 1)
		throw ZEB::Exception("A chart of field or flux data shows one data set; select only one.", FUNC_ID);
	DATAIO::DataIO & dataIO = *m_dataIOs.front();
	m_cut.reset(new CutOptions(dataIO, m_dataManager.geometry(&dataIO).get()));
	m_kind = SK_Field;
}


void DataSetOptions::listReferenceDataSets() {
	FUNCID(DataSetOptions::setSelection);
	for (std::size_t i = 0; i < m_selection.size(); ++i) {
		DataCollection collection;
		collection.takeHeader(*m_dataIOs[i]);
		if (!collection.isReferenceCollection())
			continue;
		const std::vector<std::uint32_t> & columns = collection.m_dataSetColumns;
		const auto column = std::find(columns.begin(), columns.end(), m_selection[i].m_column);
		if (column == columns.end())
			throw ZEB::Exception(ZEB::MessageFormat("File '%1' has no data set in column %2.")
								 .arg(m_selection[i].m_fileName.toStdString()).arg(m_selection[i].m_column), FUNC_ID);
		m_referenceDataSets.push_back(ReferenceDataSet{ i, collection.m_dataSetNames[int(column - columns.begin())], true });
	}
}


DataSetOptions::SelectionKind DataSetOptions::seriesKind() const {
	return usedDataSets().size() == 2 ? SK_TwoSeries : SK_Series;
}


std::vector<Mapper::DataSet> DataSetOptions::usedDataSets() const {
	std::vector<bool> used(m_selection.size(), true);
	for (const ReferenceDataSet & r : m_referenceDataSets)
		used[r.m_selectionIndex] = r.m_used;
	std::vector<Mapper::DataSet> dataSets;
	for (std::size_t i = 0; i < m_selection.size(); ++i)
		if (used[i])
			dataSets.push_back(m_selection[i]);
	return dataSets;
}


QString DataSetOptions::usedDataSetsErrorText() const {
	if (m_selection.empty() || !usedDataSets().empty())
		return QString();
	return tr("No data set is checked: check at least one.");
}


void DataSetOptions::setDataSetUsed(std::size_t i, bool used) {
	FUNCID(DataSetOptions::setDataSetUsed);
	if (i >= m_referenceDataSets.size())
		throw ZEB::Exception(ZEB::MessageFormat("The selection has no reference data set #%1.").arg(i), FUNC_ID);
	m_referenceDataSets[i].m_used = used;
	const SelectionKind kind = seriesKind();
	if (kind == m_kind) {
		emit valuesChanged();
		return;
	}
	m_kind = kind;
	emit structureChanged();
}


CutOptions & DataSetOptions::requireCut(const char * functionId) const {
	if (m_cut == nullptr)
		throw ZEB::Exception("The selection is no field or flux data set and has no cut.", functionId);
	return *m_cut;
}


const CutOptions & DataSetOptions::cut() const {
	FUNCID(DataSetOptions::cut);
	return requireCut(FUNC_ID);
}


void DataSetOptions::setCutType(EM::CutType cutType) {
	FUNCID(DataSetOptions::setCutType);
	requireCut(FUNC_ID).setCutType(cutType);
	emit structureChanged();
}


void DataSetOptions::setCutIndex(unsigned int dimension, unsigned int index) {
	FUNCID(DataSetOptions::setCutIndex);
	requireCut(FUNC_ID).setIndex(dimension, index);
	emit valuesChanged();
}


void DataSetOptions::setFollowLastTimePoint(bool follow) {
	FUNCID(DataSetOptions::setFollowLastTimePoint);
	requireCut(FUNC_ID).setFollowLastTimePoint(follow);
	emit valuesChanged();
}


void DataSetOptions::setManipulator(ManipulatorOptions::Choice choice) {
	m_manipulator.setChoice(choice);
	emit valuesChanged();
}


void DataSetOptions::setManipulatorParameter(const QString & parameter) {
	m_manipulator.setParameter(parameter);
	emit valuesChanged();
}


void DataSetOptions::setModelType(const std::string & modelType) {
	m_model.setModelType(modelType);
	emit structureChanged();
}


void DataSetOptions::setModelValue(unsigned int i, const QString & value) {
	m_model.setValue(i, value);
	emit valuesChanged();
}


void DataSetOptions::setChartKind(ChartKind kind) {
	m_chartKind = kind;
	emit valuesChanged();
}


void DataSetOptions::setBarAggregation(const BarAggregation::Settings & settings) {
	m_barAggregation = settings;
	emit valuesChanged();
}


Mapper::MapperType DataSetOptions::mapperKind() const {
	const bool series = m_kind == SK_Series || m_kind == SK_TwoSeries;
	return series && m_chartKind == CK_Bar ? Mapper::MT_Bar : Mapper::MT_Empty;
}


bool DataSetOptions::isComplete() const {
	try {
		series();
	}
	catch (ZEB::Exception &) {
		return false;
	}
	return true;
}


std::vector<DataSetOptions::Series> DataSetOptions::series() const {
	FUNCID(DataSetOptions::series);
	std::vector<Series> series;
	switch (m_kind) {
		case SK_None :
			throw ZEB::Exception("No data set selected.", FUNC_ID);
		case SK_Unsupported :
			throw ZEB::Exception(m_message.toStdString(), FUNC_ID);
		case SK_Field : {
			Series s;
			s.m_dataSets = m_selection;
			requireCut(FUNC_ID).apply(s.m_dataSets.front());
			series.push_back(s);
		} break;
		case SK_Series :
		case SK_TwoSeries : {
			const std::vector<Mapper::DataSet> used = usedDataSets();
			if (used.empty())
				throw ZEB::Exception(usedDataSetsErrorText().toStdString(), FUNC_ID);
			const Mapper::ManipulatorList manipulators = m_manipulator.manipulators();
			if (m_kind == SK_TwoSeries && !m_model.modelType().empty()) {
				series.push_back(Series{ used, m_model.modelType(), m_model.parameterText(), manipulators });
				break;
			}
			for (const Mapper::DataSet & ds : used)
				series.push_back(Series{ { ds }, std::string(), std::string(), manipulators });
		} break;
	}
	return series;
}

} // namespace OVP
