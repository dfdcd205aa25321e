#include "OVP_DataSetPropertyPage.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QDir>
#include <QPoint>

#include <DATAIO_DataIO.h>

#include <EM_Extractor2DFromReference.h>
#include <EM_Extractor2DFromTwo2D.h>
#include <EM_ModelTwo2DBase.h>

#include <QPB_CoordinateIndexType.h>
#include <QPB_EnumType.h>
#include <QPB_NumberType.h>
#include <QPB_StringType.h>

#include <Sci_AbstractCartesianChartModel.h>

#include <ZEB_Exception.h>

#include "OVP_ChartPropertyPage.h"
#include "OVP_DataSetChoices.h"
#include "OVP_IsoplethLinesType.h"
#include "OVP_ManipulatorOptions.h"
#include "OVP_Mapper.h"
#include "OVP_MapperTreeModel.h"
#include "OVP_ModelOptions.h"
#include "OVP_Project.h"
#include "OVP_ProjectHandler.h"
#include "OVP_UserInteraction.h"

namespace OVP {

namespace {

/*! "quantity [unit]" of input k of an entry: the values read from it, so that a column of a data
	file reader's collection shows its own quantity and unit rather than the collection's.
*/
QString quantityText(const Mapper::ExtractorEntry & entry, std::size_t k) {
	const DATAIO::DataIO & dataIO = *entry.m_dataIOs[k];
	const EM::ExtractorBase & extractor = *entry.m_extractor;
	std::uint32_t column = EM::ModelTwo2DBase::SINGLE_VALUE;
	if (const EM::Extractor2DFromReference * reference = dynamic_cast<const EM::Extractor2DFromReference *>(&extractor))
		column = reference->column();
	else if (const EM::Extractor2DFromTwo2D * model = dynamic_cast<const EM::Extractor2DFromTwo2D *>(&extractor))
		column = model->column(k);
	std::string quantity = dataIO.quantity();
	const std::vector<std::uint32_t> & nums = dataIO.nums();
	const std::size_t position = static_cast<std::size_t>(std::find(nums.begin(), nums.end(), column) - nums.begin());
	if (column != EM::ModelTwo2DBase::SINGLE_VALUE && dataIO.hasColumnProperties() && position < nums.size())
		quantity = dataIO.columnQuantity(position);
	return QString("%1 [%2]").arg(QString::fromStdString(quantity), QString::fromStdString(extractor.valueUnitName(k)));
}

typedef ManipulatorOptions MO;

/*! Number of manipulator types a manipulator row offers before its actions. */
constexpr int MANIPULATOR_TYPES = MO::NUM_MC - 1;
/*! The actions of a manipulator row after the types. */
enum ManipulatorAction {
	MA_MoveUp,
	MA_MoveDown,
	MA_Remove
};

/*! A manipulator of a choice with its default parameter. */
std::pair<std::string, std::string> defaultManipulator(MO::Choice choice) {
	MO options;
	options.setChoice(choice);
	return { MO::typeKeyword(choice), options.parameter().toStdString() };
}

/*! The label of a manipulator's parameter without its colon; empty without parameter. */
QString parameterName(const std::string & typeKeyword) {
	QString label = MO::parameterLabel(MO::choice(typeKeyword));
	if (label.endsWith(':'))
		label.chop(1);
	return label;
}

} // namespace


DataSetPropertyPage::DataSetPropertyPage(Mapper & mapper, unsigned int entryIndex, QObject * parent) :
	PropertyPage(parent),
	m_mapper(&mapper),
	m_entryIndex(entryIndex)
{
	ChartPropertyPage::registerValueTypes();
	const SCI::AbstractChartModel * model = mapper.chartModel();
	connect(model, &SCI::AbstractChartModel::seriesInserted, this, [this](int start, int end) {
		onSeriesMoved(start, end, true);
	});
	connect(model, &SCI::AbstractChartModel::seriesRemoved, this, [this](int start, int end) {
		onSeriesMoved(start, end, false);
	});
	connect(model, &SCI::AbstractChartModel::seriesChanged, this, [this](int start, int end) {
		if (start <= static_cast<int>(m_entryIndex) && static_cast<int>(m_entryIndex) <= end)
			reload();
	});
	connect(model, &SCI::AbstractChartModel::modelReset, this, &DataSetPropertyPage::reload);
	connect(&ProjectHandler::instance(), &ProjectHandler::modified, this, [this](int type, void * data) {
		if (type == ProjectHandler::AllModified || data == m_mapper.data())
			reload();
	});
	connect(&mapper, &QObject::destroyed, this, &DataSetPropertyPage::reload);
	reload();
}


QString DataSetPropertyPage::title() const {
	return isValid() ? pageTitle(*m_mapper, m_entryIndex) : tr("Data set");
}


QString DataSetPropertyPage::pageTitle(const Mapper & mapper, unsigned int entryIndex) {
	return tr("Data set '%1'").arg(mapper.dataSetTitle(entryIndex));
}


void DataSetPropertyPage::onEditRequested(QPB::Property * property, const QVariant & newValue) {
	if (!isValid())
		return;
	DataSetSetup setup = m_mapper->dataSetSetup(m_entryIndex);
	try {
		if (editedSetup(*property, newValue, setup)) {
			ProjectHandler & handler = ProjectHandler::instance();
			handler.setDataSetSetup(handler.project().mapperModel()->indexOf(m_mapper), m_entryIndex, setup);
		}
	}
	catch (ZEB::Exception & ex) {
		emit editRefused(exceptionText(ex));
	}
	// the rows show what the chart holds, also after a refusal or an action that changed nothing
	reload();
}


void DataSetPropertyPage::reload() {
	if (!isValid()) {
		properties().clear();
		m_structure.clear();
		return;
	}
	const DataSetSetup setup = m_mapper->dataSetSetup(m_entryIndex);
	std::unique_ptr<DataSetChoices> choices;
	try {
		choices.reset(new DataSetChoices(*m_mapper, m_entryIndex));
	}
	catch (ZEB::Exception & ex) {
		// the grid of a file that changed on disk; the page shows what it can and says why
		ex.reportAllAsErrors();
		properties().clear();
		m_structure.clear();
		return;
	}
	QString structure = QString("%1 %2 %3 %4").arg(setup.m_fileNames.size()).arg(setup.m_cutType)
		.arg(QString::fromStdString(setup.m_modelType)).arg(choices->cut() != nullptr);
	for (const std::pair<std::string, std::string> & m : setup.m_manipulators)
		structure += " " + QString::fromStdString(m.first);
	if (structure != m_structure) {
		build(setup, *choices);
		m_structure = structure;
	}
	showValues(setup, *choices);
}


void DataSetPropertyPage::build(const DataSetSetup & setup, const DataSetChoices & choices) {
	FUNCID(DataSetPropertyPage::build);
	properties().clear();
	m_fileRows.clear();
	m_quantityRows.clear();
	m_dataSetRow = nullptr;
	m_cutTypeRow = nullptr;
	m_cutIndexRows.clear();
	m_manipulatorRows.clear();
	m_parameterRows.clear();
	m_modelParameterRows.clear();
	m_isoplethLinesRow = nullptr;
	QPB::Property * root = properties().root();

	QPB::Property * data = root->addGroup(tr("Data"));
	const bool numbered = setup.m_fileNames.size() > 1;
	for (int k = 0; k < setup.m_fileNames.size(); ++k) {
		m_fileRows.push_back(addRow(data, numbered ? tr("File %1").arg(k + 1) : tr("File"), QPB::StringType::ID,
									QString(), RK_ReadOnly));
		m_quantityRows.push_back(addRow(data, numbered ? tr("Quantity %1").arg(k + 1) : tr("Quantity"),
										QPB::StringType::ID, QString(), RK_ReadOnly));
	}
	if (!Mapper::referenceDataSetName(m_mapper->entryAt(m_entryIndex, FUNC_ID)).empty())
		m_dataSetRow = addRow(data, tr("Data set"), QPB::StringType::ID, QString(), RK_ReadOnly);

	if (choices.cut() != nullptr) {
		QPB::Property * cut = root->addGroup(tr("Cut"));
		m_cutTypeRow = addRow(cut, tr("Cut type"), QPB::EnumType::ID, 0, RK_CutType);
		QStringList names;
		for (EM::CutType c : choices.cutTypes())
			names.append(EM::CutTypes::keyword(c));
		m_cutTypeRow->setAttribute(QPB::EnumType::Names, names);
		for (unsigned int d = 0; d < EM::NUM_CD; ++d) {
			if (!EM::CutTypes::isCut(setup.m_cutType, d))
				continue;
			QPB::Property * row = addRow(cut, choices.cut()->dimensionName(d), QPB::CoordinateIndexType::ID, 0,
										 RK_CutIndex, static_cast<int>(d));
			row->setAttribute(QPB::CoordinateIndexType::Unit, choices.cut()->unit(d));
			row->setAttribute(QPB::CoordinateIndexType::FollowLast, d == EM::CD_Time);
			m_cutIndexRows.push_back(row);
		}
	}

	// manipulators change the values of a line or bar series
	if (m_mapper->isSeriesChart()) {
		QPB::Property * group = root->addGroup(tr("Manipulators"));
		QStringList names;
		for (int c = MO::MC_None + 1; c < MO::NUM_MC; ++c)
			names.append(MO::text(static_cast<MO::Choice>(c)));
		names << tr("Move up") << tr("Move down") << tr("Remove");
		for (std::size_t i = 0; i < setup.m_manipulators.size(); ++i) {
			QPB::Property * row = addRow(group, tr("Manipulator %1").arg(i + 1), QPB::EnumType::ID, 0, RK_Manipulator,
										 static_cast<int>(i));
			row->setAttribute(QPB::EnumType::Names, names);
			m_manipulatorRows.push_back(row);
			const QString parameter = parameterName(setup.m_manipulators[i].first);
			m_parameterRows.push_back(parameter.isEmpty() ? nullptr
				: addRow(row, parameter, QPB::StringType::ID, QString(), RK_ManipulatorParameter, static_cast<int>(i)));
		}
		QStringList choicesToAdd;
		for (int c = MO::MC_None; c < MO::NUM_MC; ++c)
			choicesToAdd.append(MO::text(static_cast<MO::Choice>(c)));
		addRow(group, tr("Add manipulator"), QPB::EnumType::ID, 0, RK_AddManipulator)
			->setAttribute(QPB::EnumType::Names, choicesToAdd);
	}

	if (!setup.m_modelType.empty()) {
		QPB::Property * group = root->addGroup(tr("Model"));
		addRow(group, tr("Model"), QPB::StringType::ID, ModelOptions::modelText(setup.m_modelType), RK_ReadOnly);
		ModelOptions options;
		options.setModelType(setup.m_modelType);
		for (std::size_t i = 0; i < options.parameters().size(); ++i) {
			const EM::ModelParameter & p = options.parameters()[i];
			const QVariant defaultValue = p.m_integer ? QVariant(static_cast<int>(p.m_default)) : QVariant(p.m_default);
			QPB::Property * row = addRow(group, QString::fromUtf8(p.m_description),
										 p.m_integer ? QPB::NumberType::INT_ID : QPB::NumberType::DOUBLE_ID,
										 defaultValue, RK_ModelParameter, static_cast<int>(i));
			if (std::isfinite(p.m_minimum))
				row->setAttribute(QPB::NumberType::Minimum, p.m_minimum);
			if (std::isfinite(p.m_maximum))
				row->setAttribute(QPB::NumberType::Maximum, p.m_maximum);
			row->setDefaultValue(defaultValue);
			row->setToolTip(tr("Parameter %1, default %2").arg(p.m_key).arg(p.m_default));
			m_modelParameterRows.push_back(row);
		}
		if (setup.m_modelType == "IsoplethModel") {
			m_isoplethLinesRow = addRow(group, tr("Isopleth lines"), IsoplethLinesType::ID, QString(), RK_IsoplethLines);
			m_isoplethLinesRow->setToolTip(tr("The lines of the substrate class evaluated: the default lines or "
											  "a table file"));
		}
	}
}


void DataSetPropertyPage::showValues(const DataSetSetup & setup, const DataSetChoices & choices) {
	FUNCID(DataSetPropertyPage::showValues);
	const Mapper::ExtractorEntry & entry = m_mapper->entryAt(m_entryIndex, FUNC_ID);
	for (std::size_t k = 0; k < m_fileRows.size() && k < entry.m_dataIOs.size(); ++k) {
		const DATAIO::DataIO & dataIO = *entry.m_dataIOs[k];
		m_fileRows[k]->setValue(QDir::toNativeSeparators(QString::fromStdString(dataIO.filename())));
		m_quantityRows[k]->setValue(quantityText(entry, k));
	}
	if (m_dataSetRow != nullptr)
		m_dataSetRow->setValue(QString::fromStdString(Mapper::referenceDataSetName(entry)));

	if (m_cutTypeRow != nullptr) {
		const std::vector<EM::CutType> & types = choices.cutTypes();
		m_cutTypeRow->setValue(static_cast<int>(std::find(types.begin(), types.end(), setup.m_cutType) - types.begin()));
	}
	for (QPB::Property * row : m_cutIndexRows) {
		const unsigned int d = static_cast<unsigned int>(row->tag().toPoint().y());
		QVariantList coordinates;
		for (double c : choices.cut()->coordinates(d))
			coordinates.append(c);
		row->setAttribute(QPB::CoordinateIndexType::Coordinates, coordinates);
		row->setValue(d == EM::CD_Time && setup.m_followLastTimePoint ? QPB::CoordinateIndexType::FOLLOW_LAST
																	   : static_cast<int>(setup.m_cutIndices[d]));
	}

	for (std::size_t i = 0; i < m_manipulatorRows.size(); ++i) {
		m_manipulatorRows[i]->setValue(static_cast<int>(MO::choice(setup.m_manipulators[i].first)) - 1);
		if (m_parameterRows[i] != nullptr)
			m_parameterRows[i]->setValue(QString::fromStdString(setup.m_manipulators[i].second));
	}

	for (QPB::Property * row : m_modelParameterRows) {
		ModelOptions options;
		options.setModelType(setup.m_modelType);
		const EM::ModelParameter & p = options.parameters()[static_cast<std::size_t>(row->tag().toPoint().y())];
		double value = p.m_default;
		for (const std::pair<std::string, std::string> & kv : setup.m_modelParameters)
			if (kv.first == p.m_key)
				value = QString::fromStdString(kv.second).toDouble();
		row->setValue(p.m_integer ? QVariant(static_cast<int>(value)) : QVariant(value));
	}
	if (m_isoplethLinesRow != nullptr)
		m_isoplethLinesRow->setValue(QString::fromStdString(setup.m_isoplethLines.m_name));
}


bool DataSetPropertyPage::editedSetup(const QPB::Property & property, const QVariant & value,
									  DataSetSetup & setup) const
{
	const QPoint tag = property.tag().toPoint();
	const std::size_t index = static_cast<std::size_t>(tag.y());
	DataSetSetup::KeywordList & manipulators = setup.m_manipulators;
	switch (tag.x()) {
		case RK_CutType : {
			const std::vector<EM::CutType> types = DataSetChoices(*m_mapper, m_entryIndex).cutTypes();
			setup.m_cutType = types.at(static_cast<std::size_t>(value.toInt()));
		} return true;

		case RK_CutIndex :
			if (value.toInt() == QPB::CoordinateIndexType::FOLLOW_LAST) {
				setup.m_followLastTimePoint = true;
			}
			else {
				setup.m_cutIndices[index] = static_cast<unsigned int>(value.toInt());
				if (index == EM::CD_Time)
					setup.m_followLastTimePoint = false;
			}
			return true;

		case RK_Manipulator : {
			const int choice = value.toInt();
			if (choice < MANIPULATOR_TYPES) {
				manipulators[index] = defaultManipulator(static_cast<MO::Choice>(choice + 1));
				return true;
			}
			switch (choice - MANIPULATOR_TYPES) {
				case MA_MoveUp :
					if (index == 0)
						return false;
					std::swap(manipulators[index], manipulators[index - 1]);
					return true;
				case MA_MoveDown :
					if (index + 1 >= manipulators.size())
						return false;
					std::swap(manipulators[index], manipulators[index + 1]);
					return true;
				default :
					manipulators.erase(manipulators.begin() + static_cast<long>(index));
					return true;
			}
		}

		case RK_ManipulatorParameter :
			manipulators[index].second = value.toString().trimmed().toStdString();
			return true;

		case RK_AddManipulator :
			if (value.toInt() == MO::MC_None)
				return false;
			manipulators.push_back(defaultManipulator(static_cast<MO::Choice>(value.toInt())));
			return true;

		case RK_ModelParameter : {
			ModelOptions options;
			options.setModelType(setup.m_modelType);
			const EM::ModelParameter & p = options.parameters().at(index);
			const std::string text = p.m_integer ? std::to_string(value.toInt())
												 : QString::number(value.toDouble(), 'g', 12).toStdString();
			auto kv = std::find_if(setup.m_modelParameters.begin(), setup.m_modelParameters.end(),
								   [&p](const std::pair<std::string, std::string> & e) { return e.first == p.m_key; });
			if (kv == setup.m_modelParameters.end())
				setup.m_modelParameters.emplace_back(p.m_key, text);
			else
				kv->second = text;
			return true;
		}

		case RK_IsoplethLines : {
			const QString text = value.toString();
			if (text == property.value().toString())
				return false;
			setup.m_isoplethLines = text.isEmpty() ? IsoplethLineSet() : IsoplethLineSet::readFile(text);
			return true;
		}
	}
	return false;
}


QPB::Property * DataSetPropertyPage::addRow(QPB::Property * parent, const QString & name, const QString & typeId,
											 const QVariant & value, RowKind kind, int index)
{
	QPB::Property * row = parent->addChild(name, typeId, value);
	row->setTag(QPoint(kind, index));
	row->setEnabled(kind != RK_ReadOnly);
	return row;
}


void DataSetPropertyPage::onSeriesMoved(int start, int end, bool inserted) {
	const int count = end - start + 1;
	const int index = static_cast<int>(m_entryIndex);
	if (!m_entryExists || start > index)
		return;
	if (inserted)
		m_entryIndex += static_cast<unsigned int>(count);
	else if (end < index)
		m_entryIndex -= static_cast<unsigned int>(count);
	else
		m_entryExists = false;
	reload();
}


bool DataSetPropertyPage::isValid() const {
	return m_mapper != nullptr && m_entryExists && m_entryIndex < m_mapper->extractorCount();
}

} // namespace OVP
