#include "OVP_SliceWriter.h"

#include <algorithm>
#include <memory>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <DATAIO_CreationTime.h>
#include <DATAIO_DataIOWriter.h>
#include <DATAIO_GeoFile.h>
#include <DATAIO_NumberText.h>

#include <EM_Extractor2DOutputBase.h>
#include <EM_Extractor3DOutputBase.h>
#include <EM_ExtractorFactory.h>
#include <EM_FieldCut.h>
#include <EM_SpaceGrid.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_FieldOutputFile.h"
#include "OVP_TemporaryTarget.h"

namespace OVP {

namespace {

const char * const DIRECTION_NAMES[3] = { "x", "y", "z" };

} // namespace


SliceWriter::SliceWriter(FieldOutputFile & input) :
	m_input(input)
{
}


void SliceWriter::writeHistory(std::uint32_t element, const QString & target) {
	FUNCID(SliceWriter::writeHistory);
	try {
		DATAIO::DataIO & dataIO = m_input.dataIO();
		EM::SpaceGrid grid;
		const std::vector<unsigned int> cells = elementCells(element, grid);
		const unsigned int dims = grid.dimensionCount();
		m_input.checkTimeRange(0, 0);

		std::unique_ptr<EM::ExtractorBase> extractor = EM::ExtractorFactory::createExtractor(&dataIO,
			cutType((1u << dims) - 1, false), m_input.sharedGeometry());
		for (unsigned int d = 0; d < dims; ++d)
			extractor->setCutIndex(d, cells[d], false);
		m_input.runExtractor(*extractor, FUNC_ID);
		const EM::Extractor2DOutputBase & series = dynamic_cast<const EM::Extractor2DOutputBase &>(*extractor);

		const std::string quantity = ZEB::MessageFormat("%1, history of %2 %3").arg(dataIO.quantity())
			.arg(itemName()).arg(element).str();
		writeFile(sliceHeader({ element }, quantity, target), series.x().m_data, series.y().m_data, target);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Writing the history of %1 %2 of '%3' to '%4' failed.")
							 .arg(itemName()).arg(element).arg(m_input.path().toStdString()).arg(target.toStdString()), FUNC_ID);
	}
}


void SliceWriter::writeProfile(std::uint32_t element, unsigned int direction, unsigned int timeIndex,
							   const QString & target)
{
	FUNCID(SliceWriter::writeProfile);
	try {
		DATAIO::DataIO & dataIO = m_input.dataIO();
		EM::SpaceGrid grid;
		const std::vector<unsigned int> cells = elementCells(element, grid);
		const unsigned int dims = grid.dimensionCount();
		unsigned int line = dims;
		std::string directions;
		for (unsigned int d = 0; d < dims; ++d) {
			if (grid.direction(d) == direction)
				line = d;
			directions += std::string(directions.empty() ? "" : ", ") + DIRECTION_NAMES[grid.direction(d)];
		}
		if (direction > 2 || line == dims)
			throw ZEB::Exception(ZEB::MessageFormat("The values of output file '%1' do not vary in the direction asked "
				"for; profiles can run in direction %2.").arg(m_input.path().toStdString()).arg(directions), FUNC_ID);
		const bool allTimes = timeIndex == ALL_TIMES;
		m_input.checkTimeRange(allTimes ? 0 : timeIndex, allTimes ? 0 : timeIndex);

		const unsigned int fixedMask = ((1u << dims) - 1) & ~(1u << line);
		const EM::CutType cut = cutType(fixedMask, !allTimes);
		std::unique_ptr<EM::ExtractorBase> extractor = EM::ExtractorFactory::createExtractor(&dataIO, cut,
			m_input.sharedGeometry());
		for (unsigned int d = 0; d < dims; ++d)
			if (d != line)
				extractor->setCutIndex(d, cells[d], false);
		if (!allTimes)
			extractor->setTimeCutIndex(timeIndex, true, false);
		m_input.runExtractor(*extractor, FUNC_ID);

		// the elements of the cells on the line, in the order the extractor gives their values
		std::vector<std::ptrdiff_t> columns;
		EM::FieldCut(dataIO.dataFormat(), cut, allTimes ? 2 : 1, FUNC_ID).selectCutColumns(dataIO, &m_input.geometry(),
			[&cells](unsigned int d, std::size_t) { return cells[d]; }, columns, FUNC_ID);
		std::vector<std::uint32_t> elements;
		for (std::ptrdiff_t c : columns)
			if (c >= 0)
				elements.push_back(dataIO.nums()[static_cast<std::size_t>(c)]);

		std::vector<double> timePoints;
		std::vector<double> values;
		ZEB::MessageFormat quantity("%1, profile in %2 direction through %3 %4");
		quantity.arg(dataIO.quantity()).arg(DIRECTION_NAMES[direction]).arg(itemName()).arg(element);
		if (allTimes) {
			const EM::Extractor3DOutputBase & field = dynamic_cast<const EM::Extractor3DOutputBase &>(*extractor);
			timePoints = field.x().m_data;
			for (std::size_t t = 0; t < field.xCellCount(); ++t)
				for (std::size_t j = 0; j < columns.size(); ++j)
					if (columns[j] >= 0)
						values.push_back(field.value(t, j));
		}
		else {
			const EM::Extractor2DOutputBase & series = dynamic_cast<const EM::Extractor2DOutputBase &>(*extractor);
			timePoints.push_back(dataIO.timePoints()[timeIndex]);
			values = series.y().m_data;
			std::string time;
			DATAIO::NumberText::appendDouble(time, timePoints.front());
			quantity = ZEB::MessageFormat(quantity.str() + " at %1 %2").arg(time).arg(dataIO.timeUnit());
		}
		if (values.size() != elements.size()*timePoints.size())
			throw ZEB::Exception("The extracted values do not match the elements on the line.", FUNC_ID);
		writeFile(sliceHeader(elements, quantity.str(), target), timePoints, values, target);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Writing a profile through %1 %2 of '%3' to '%4' failed.")
							 .arg(itemName()).arg(element).arg(m_input.path().toStdString()).arg(target.toStdString()), FUNC_ID);
	}
}


std::vector<unsigned int> SliceWriter::elementCells(std::uint32_t element, EM::SpaceGrid & grid) const {
	FUNCID(SliceWriter::elementCells);
	// the sides of a flux output of a one-dimensional grid lie along a line as elements do; the
	// fluxes of larger grids are shown as vectors only and have no cut
	if (m_input.isFlux() && m_input.dataIO().dataFormat() != DATAIO::DataIO::DF_3D)
		throw ZEB::Exception(ZEB::MessageFormat("Output file '%1' holds fluxes across the sides of a grid in more than "
			"one direction, which the charts show as vectors; slices are cut from fluxes of one-dimensional grids "
			"(and from field outputs) only.").arg(m_input.path().toStdString()), FUNC_ID);
	grid.build(m_input.dataIO(), m_input.geometry(), EM::FieldCut::spaceDimensionCount(m_input.dataIO().dataFormat()));
	const std::vector<std::uint32_t> & nums = m_input.dataIO().nums();
	const auto it = std::find(nums.begin(), nums.end(), element);
	if (it == nums.end())
		throw ZEB::Exception(ZEB::MessageFormat("%1 %2 is not listed in output file '%3'.")
							 .arg(m_input.isFlux() ? "Side" : "Element").arg(element).arg(m_input.path().toStdString()), FUNC_ID);
	const std::size_t column = static_cast<std::size_t>(it - nums.begin());
	std::vector<unsigned int> cells;
	for (unsigned int d = 0; d < grid.dimensionCount(); ++d)
		cells.push_back(grid.cell(column, d));
	return cells;
}


const char * SliceWriter::itemName() const {
	return m_input.isFlux() ? "side" : "element";
}


EM::CutType SliceWriter::cutType(unsigned int spaceMask, bool cutTime) {
	const unsigned int mask = spaceMask | (cutTime ? 1u << EM::CD_Time : 0u);
	for (int t = 0; t < EM::NUM_CT; ++t)
		if (EM::CutTypes::dimensionMask(static_cast<EM::CutType>(t)) == mask)
			return static_cast<EM::CutType>(t);
	return EM::NUM_CT;
}


DATAIO::DataIO SliceWriter::sliceHeader(const std::vector<std::uint32_t> & elements, const std::string & quantity,
										const QString & target) const
{
	const DATAIO::DataIO & source = m_input.dataIO();
	DATAIO::DataIO header;
	header.setBinary(source.isBinary());
	header.setNums(elements);
	// a flux slice stays a flux output, so that its numbers are looked up among the sides
	header.setType(source.type());
	header.setSpaceType(DATAIO::DataIO::ST_SINGLE);
	header.setTimeType(source.timeType());
	header.setProjectFileName(source.projectFileName());
	header.setQuantity(quantity);
	header.setQuantityKeyword(source.quantityKeyword());
	header.setValueUnit(source.valueUnit());
	header.setTimeUnit(source.timeUnit());
	header.setStartYear(source.startYear());
	header.setCreatedTime(DATAIO::CreationTime::toText(QDateTime::currentSecsSinceEpoch()));
	if (source.majorFileVersion() < DATAIO::DataIO::MAJOR_FILE_VERSION) {
		header.setFileVersion(source.majorFileVersion(), source.minorFileVersion());
		header.setGeometry(std::unique_ptr<DATAIO::GeoFile>(new DATAIO::GeoFile(m_input.geometry())));
		return header;
	}
	// a relative geometry file name is relative to the output file's folder
	const QString geoName = QString::fromStdString(source.geoFileName());
	header.setGeoFileName(QDir::isAbsolutePath(geoName) ? source.geoFileName() :
		QDir(QFileInfo(target).absolutePath()).relativeFilePath(m_input.geometryPath()).toStdString());
	header.setGeoFileHash(source.geoFileHash());
	return header;
}


void SliceWriter::writeFile(const DATAIO::DataIO & header, const std::vector<double> & timePoints,
							const std::vector<double> & values, const QString & target)
{
	TemporaryTarget file(target);
	DATAIO::DataIOWriter writer;
	writer.open(file.path(), header);
	const std::size_t n = timePoints.empty() ? 0 : values.size()/timePoints.size();
	for (std::size_t t = 0; t < timePoints.size(); ++t)
		writer.appendRecord(timePoints[t], values.data() + t*n, n);
	writer.close();
	file.commit();
}

} // namespace OVP
