#ifndef OVP_MapperH
#define OVP_MapperH

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <DATAIO_DataIO.h>

#include <EM_CutType.h>

#include <ZEB_Unit.h>

#include "OVP_DataPathRemap.h"
#include "OVP_DataSetSetup.h"

class TiXmlElement;

namespace EM {
class ExtractorBase;
class Extractor2DOutputBase;
class ManipulatorBase;
class ModelTwo2DBase;
class ModelTwo2DIsopleth;
}

namespace SCI {
class AbstractCartesianChartModel;
class Chart;
}

namespace OVP {

class DataManager;

/*! One chart together with everything needed to rebuild its data from files: the extractors
	that cut one data set each out of an output file (with their manipulators and models), the
	chart model that presents them and the plot that draws them.

	A mapper is a line chart of any number of 2D extractors (one series each), a bar chart of
	any number of 2D extractors of time series (SeriesBarExtractorModel), a colour grid of
	exactly one 3D extractor, a vector field of exactly one vector-field extractor, or an
	isopleth or WTA wood chart of exactly one extractor that combines two 2D data sets by the
	isopleth or the WTA wood degradation model and shows the model in the temperature and
	relative humidity plane (chosen when such a chart is created from that model). Its state
	is stored in the project file as element Mapper (readXML(), writeXML()), so that the chart
	can be rebuilt from the files on disk. The target units of the extractors are the units of
	the chart axes: a change of an axis unit converts the series.
*/
class Mapper : public QObject {
	Q_OBJECT
public:
	/*! The kind of chart, decided by the first extractor. */
	enum MapperType {
		MT_Empty,		///< no extractor yet
		MT_2D,			///< line chart of 2D extractors
		MT_3D,			///< colour grid of one 3D extractor
		MT_Vector,		///< vector field of one vector-field extractor
		MT_Isopleth,	///< isopleth chart of one extractor with the isopleth model
		MT_WTA,			///< WTA wood chart of one extractor with the WTA wood degradation model
		MT_Bar			///< bar chart of 2D extractors, each a time series reduced per period
	};

	/*! A data set selected by the user: a file and, for reference outputs, the column number as
		the header lists it; for field and flux outputs the cut type chooses the extractor and
		the cut indices select the slice.
	*/
	struct DataSet {
		QString			m_fileName;
		std::uint32_t	m_column = 0;
		EM::CutType		m_cutType = EM::CT_NoCut;
		/*! Cut indices to select as (EM::CutDimension, index) pairs; the time index
			EM::ExtractorBase::LAST_INDEX follows the last time point. Dimensions not listed keep
			the extractor's default.
		*/
		std::vector<std::pair<unsigned int, unsigned int> >	m_cutIndices = {};
	};

	/*! Manipulators for a new series as (type keyword, parameter text) pairs, in the order in
		which they are applied.
	*/
	typedef DataSetSetup::KeywordList ManipulatorList;

	/*! One extractor with the containers it reads (held open for it) and, for series of a line
		chart, the series title that is saved with the mapper.
	*/
	struct ExtractorEntry {
		std::unique_ptr<EM::ExtractorBase>				m_extractor;
		std::vector<std::shared_ptr<DATAIO::DataIO> >	m_dataIOs;
		/*! Revision of each container (DataManager) that the output was last updated from. */
		std::vector<unsigned int>						m_revisions;
		/*! Data format the extractor was made for (the file's format when it was created). */
		DATAIO::DataIO::DataFormat						m_dataFormat = DATAIO::DataIO::NUM_DF;
		/*! Series title as stored; "$filename" stands for the source file name. */
		QString											m_title;

		/*! The extractor as 2D extractor; only for entries of a 2D mapper. */
		EM::Extractor2DOutputBase & output2D() const;
	};

	/*! An empty mapper that opens its files through dataManager. */
	explicit Mapper(DataManager & dataManager, QObject * parent = nullptr);
	~Mapper() override;

	/*! A new mapper of one data set, or of two 2D data sets combined by the model of the given
		type keyword (e.g. "VTTMouldModel") with its parameter text (empty: defaults); the
		manipulators apply to the series of a line chart. The isopleth and the WTA wood
		degradation model make an isopleth or WTA wood chart, which takes no manipulators; the
		other models a line chart of the model's result. The extractor is updated, the chart set
		up with the data's units and default titles, and the mapper named after the quantity of
		the data (the model's title for a model). The kind of chart follows from the data, except
		that kind MT_Bar makes a bar chart of a time series. Throws ZEB::Exception.
	*/
	static std::unique_ptr<Mapper> createNewMapper(DataManager & dataManager, const std::vector<DataSet> & dataSets,
												   const std::string & modelType = std::string(),
												   const std::string & modelParameter = std::string(),
												   const ManipulatorList & manipulators = ManipulatorList(),
												   MapperType kind = MT_Empty);

	/*! Adds the series of one data set, or of two 2D data sets and a model (with its parameter
		text), to a line or bar chart, with the given manipulators. The series of a line chart
		goes to the y axis whose unit it converts to; that of a bar chart must fit its periods
		and unit (SeriesBarExtractorModel::checkSeries()). Throws ZEB::Exception when the data
		set does not fit the chart or the chart takes no further series (isopleth, WTA wood,
		colour grid, vector field); the mapper is then unchanged.
	*/
	void addExtractor(const std::vector<DataSet> & dataSets, const std::string & modelType = std::string(),
					  const std::string & modelParameter = std::string(),
					  const ManipulatorList & manipulators = ManipulatorList());

	/*! How an entry is set up: index is the series of a line chart, 0 the 3D or vector-field
		extractor. Throws ZEB::Exception for an index the mapper does not have.
	*/
	DataSetSetup dataSetSetup(unsigned int index) const;
	/*! Rebuilds an entry from a setup: the extractor reads the files with the cut, manipulators
		and model of the setup, and the chart model announces the changed series; the series
		title and all chart properties stay. The data must fit the chart as for addExtractor()
		(data format, units convertible to the axes); an axis that no other series uses takes
		the unit of the new data when the old unit does not fit. Everything is checked first:
		the file must open, the cut type must give this chart's kind of series from the file,
		each cut index must lie within the file (a fixed time index that a rerun has not reached
		again may stay as it is), manipulators and model must accept their parameters. Throws
		ZEB::Exception when something does not fit; the mapper is then unchanged.
	*/
	void setDataSetSetup(unsigned int index, const DataSetSetup & setup);

	/*! A new entry built and checked from a setup, with the axis units it needs: the part of
		setDataSetSetup() that may fail, done before anything changes (an undo step prepares it).
	*/
	struct PreparedSetup {
		unsigned int									m_index = 0;
		ExtractorEntry									m_entry;
		std::vector<std::pair<int, ZEB::Unit> >		m_axisUnits;
	};
	/*! Builds and checks the entry of a setup as setDataSetSetup() does, without changing the
		mapper. Throws ZEB::Exception telling why the setup does not fit.
	*/
	PreparedSetup prepareDataSetSetup(unsigned int index, const DataSetSetup & setup) const;
	/*! Puts a prepared entry in place of the old one; the mapper must not have changed since it
		was prepared.
	*/
	void applyDataSetSetup(PreparedSetup prepared);

	/*! Removes a series of a line chart with its display properties. Throws ZEB::Exception as
		checkRemovable() does.
	*/
	void removeExtractor(unsigned int index);
	/*! Throws ZEB::Exception when a series cannot be removed: for other charts than line charts,
		for a bad index and for the last series (the chart is deleted instead).
	*/
	void checkRemovable(unsigned int index) const;
	/*! Puts series index of source, a line chart read back from a snapshot of this one before
		the series was removed, back at index with its title and display properties; source
		loses the series. Throws ZEB::Exception when either chart is no line chart or index does
		not fit.
	*/
	void restoreSeries(unsigned int index, Mapper & source);

	/*! Checks that an axis may take a unit: it must convert to and from the units of the data
		shown on the axis (any unit for an axis without data). Throws ZEB::Exception telling why
		not, also for a unit id or axis position that does not exist.
	*/
	void checkAxisUnit(int axisPosition, unsigned int unitId) const;
	/*! The units an axis can be switched to: all units of the group of its unit, in registry
		order; none while it has no unit.
	*/
	std::vector<ZEB::Unit> axisUnitChoices(int axisPosition) const;

	/*! When the extractors of a mapper read from a Mapper element take their data from the files. */
	enum Extraction {
		ExtractNow,			///< at once, while the element is read
		ExtractWhenNeeded	///< when the chart's data is first needed (extractPendingData())
	};

	/*! Reads the content of a Mapper element: extractors and chart model. Data file paths are
		resolved against projectDir and then re-pointed by remap. The files are opened and the
		target units set while reading; with ExtractWhenNeeded the extraction itself waits for
		extractPendingData(), so that a session opens without extracting the data of charts no
		one looks at. Throws ZEB::Exception.
	*/
	void readXML(const TiXmlElement * element, const QString & projectDir, const DataPathRemap & remap = DataPathRemap(),
				 Extraction extraction = ExtractNow);
	/*! True while the data of a mapper read with ExtractWhenNeeded has not been extracted yet. */
	bool dataPending() const { return m_dataPending; }
	/*! Extracts the data of a mapper read with ExtractWhenNeeded, once: every extractor is
		updated (failures reported as by any update) and the chart model announces the changed
		series. Called by everything that shows or reads the chart's data: the plot (chart(),
		also for the data table and exports), the property pages, a change of the data sets,
		and the series models before they hand out values.
	*/
	void extractPendingData();
	/*! Writes the extractors and the chart model into the Mapper element; data file paths are
		written relative to projectDir where possible; writeAll makes the chart model write all
		properties, also those at their defaults.
	*/
	void writeXML(TiXmlElement * element, const QString & projectDir, bool writeAll) const;

	/*! The data files a Mapper element names (DataIOFileName and DataIOFileName2 of its
		extractors, resolved against projectDir), in order, without checking anything else.
	*/
	static QStringList dataFileNames(const TiXmlElement * element, const QString & projectDir);
	/*! The data files the extractors read, in order (a file read twice is listed twice). */
	QStringList dataFileNames() const;

	/*! Entries like the mapper's own (same cuts, manipulators and models), rebuilt from the files
		that remap points their data files at; the mapper is not changed. Throws ZEB::Exception
		when a file cannot be opened or has another data format than the one it replaces.
	*/
	std::vector<ExtractorEntry> repointedEntries(const DataPathRemap & remap) const;
	/*! Replaces the extractors by entries from repointedEntries(): the series keep their titles,
		the chart model keeps its properties and shows the new data.
	*/
	void replaceEntries(std::vector<ExtractorEntry> entries);

	/*! Creates the extractor that fits the data format (as given) of a container and a cut type;
		column is the column number of a reference output. Throws ZEB::Exception.
	*/
	std::unique_ptr<EM::ExtractorBase> createExtractor(DATAIO::DataIO * dataIO, DATAIO::DataIO::DataFormat format,
													   EM::CutType cutType, std::uint32_t column) const;
	/*! A manipulator of the given type keyword; throws ZEB::Exception for an unknown type. */
	static std::unique_ptr<EM::ManipulatorBase> createManipulator(const std::string & type);
	/*! A model of the given type keyword; throws ZEB::Exception for an unknown type. */
	static std::unique_ptr<EM::ModelTwo2DBase> createModel(const std::string & type);

	const QString & name() const { return m_name; }
	void setName(const QString & name) { m_name = name; }
	MapperType type() const { return m_type; }
	/*! True for line and bar charts: one series per 2D extractor. */
	bool isSeriesChart() const { return m_type == MT_2D || m_type == MT_Bar; }
	/*! The chartType attribute of a kind: "2D", "3D", "Vector", "Isopleth", "WTA" or "Bar". */
	static const char * chartTypeKeyword(MapperType kind);

	/*! Number of extractors (series of a line chart, or the one 3D or vector extractor). */
	unsigned int extractorCount() const;
	/*! The 2D extractors in series order. */
	const std::vector<ExtractorEntry> & extractors2D() const { return m_2DExtractors; }
	/*! The entry of the one extractor of the charts other than line charts (colour grid,
		vector field, isopleth, WTA wood); its extractor is null in 2D mappers.
	*/
	const ExtractorEntry & extractor3D() const { return m_3DExtractor; }
	/*! The entry at an index as dataSetSetup() counts; throws ZEB::Exception with the given
		function id for an index the mapper does not have.
	*/
	const ExtractorEntry & entryAt(unsigned int index, const char * functionId) const;
	/*! The name of an entry for the user: the series title of a line chart (with the file name
		for "$filename"), the chart's name for a colour grid or vector field.
	*/
	QString dataSetTitle(unsigned int index) const;

	/*! The chart model; null while the mapper has no extractor. */
	SCI::AbstractCartesianChartModel * chartModel() const { return m_chartModel.get(); }
	/*! The plot of the chart model, created on first request (null without chart model). The
		mapper owns it; views may re-parent it.
	*/
	SCI::Chart * chart();

	/*! A title with "$filename" replaced by the file name (without folder) of the entry's first
		container.
	*/
	static QString displayTitle(const QString & title, const ExtractorEntry & entry);
	/*! The name of the data set of an entry of one reference column, when its file names it;
		empty otherwise.
	*/
	static std::string referenceDataSetName(const ExtractorEntry & entry);
	/*! Stores the title of a line series, which is saved with the mapper. */
	void setSeriesTitle(unsigned int index, const QString & title);

	/*! Re-reads what changed in the files of the extractors and updates every extractor whose
		data changed or that still waits for data; the chart model announces each changed
		series. A file that cannot be refreshed is reported and its extractor keeps its data.
		The mode is handed on to the data manager (DataManager::refresh()). While the data is
		pending (readXML()), only the files are refreshed. Does nothing while the data manager
		is reading a file.
	*/
	void refresh(DATAIO::DataIO::RefreshMode mode = DATAIO::DataIO::RM_FOLLOW);
	/*! Updates one 2D extractor now (after a change of cut, manipulator or model parameter) and
		announces the changed series.
	*/
	void update2DExtractor(unsigned int index);
	/*! Takes the axis units of the chart model as target units of all extractors and converts
		their output; the chart model announces the changed series.
	*/
	void applyAxisUnits();

signals:
	/*! Display properties of series start..end changed (role as in the chart model). */
	void seriesViewChanged(int start, int end, int role);

public slots:
	/*! Passes a display change of the chart model on as seriesViewChanged(). */
	void onSeriesViewChanged(int start, int end, int role);

private:
	/*! What an Extractor element describes, gathered before the extractor is built. */
	struct ExtractorDefinition;

	/*! Reads one Extractor element; its data file paths are re-pointed by remap. */
	static void readExtractorDefinition(const TiXmlElement * element, const QString & projectDir,
										const DataPathRemap & remap, ExtractorDefinition & def);
	/*! Builds an extractor entry from its definition. */
	ExtractorEntry createExtractorEntry(ExtractorDefinition & def) const;
	/*! Writes one Extractor element. */
	static void writeExtractor(TiXmlElement * parent, const ExtractorEntry & entry, const QString & projectDir);
	/*! The isopleth model of an entry; null when it has another model or none. */
	static EM::ModelTwo2DIsopleth * isoplethModel(const ExtractorEntry & entry);
	/*! The isopleth line sets saved in a ChartModel element, by extractor index. */
	static std::map<unsigned int, IsoplethLineSet> readIsoplethLines(const TiXmlElement * chartModel);
	/*! Writes the line sets of the entries whose isopleth model does not use its default lines. */
	void writeIsoplethLines(TiXmlElement * chartModel) const;

	/*! Builds the entry of one data set (with its cut indices), or of two 2D data sets combined
		by a model with its parameter text, and gives it the manipulators.
	*/
	ExtractorEntry createEntry(const std::vector<DataSet> & dataSets, const std::string & modelType,
							   const std::string & modelParameter, const ManipulatorList & manipulators) const;
	/*! The units (as the files give them) of the data that the entries other than skippedEntry
		show on an axis.
	*/
	std::vector<ZEB::Unit> axisDataUnits(int axisPosition, int skippedEntry = -1) const;
	/*! The unit (as the files give it) of what an entry shows on an axis, outputAxis counted as
		EM::ExtractorBase::axisUnitFromDataIO() counts; bars of counted days are in days.
	*/
	ZEB::Unit dataUnitOnAxis(const ExtractorEntry & entry, int axisPosition, unsigned int outputAxis) const;
	/*! True when series index of a line chart is drawn against the left axis (always for
		other charts).
	*/
	bool onLeftAxis(unsigned int index) const;
	/*! Checks the files of a setup for entry old: their number, that they open and hold data of
		the entry's format, the cut type for this chart's kind of series, a reference column.
	*/
	void checkSetupFiles(const DataSetSetup & setup, const ExtractorEntry & old) const;
	/*! The new units of the axes that a new entry for entry index (on the left or right axis)
		needs: the unit of its data on each axis whose unit does not fit and that no other entry
		uses. Throws ZEB::Exception when such an axis is used by other entries.
	*/
	std::vector<std::pair<int, ZEB::Unit> > axisUnitsFor(const ExtractorEntry & entry, unsigned int index,
														 bool leftAxis) const;
	/*! Checks that each index the setup uses lies within the coordinates of the new entry; a
		time index that old (same files and cut type) holds already may lie past the end.
	*/
	static void checkCutIndices(const DataSetSetup & setup, const ExtractorEntry & entry, const ExtractorEntry & old);

	/*! Appends an entry: decides the kind and creates the chart model with the first entry,
		enforces the kind rules of a mapper. The first entry makes the chart of planeKind
		(MT_Isopleth or MT_WTA; throws ZEB::Exception when the entry has not that chart's model)
		or, with MT_Empty, the chart of its output kind. When the chart model exists already,
		the new series is announced.
	*/
	void appendEntry(ExtractorEntry entry, MapperType planeKind = MT_Empty);
	/*! True for the isopleth and the WTA wood chart, which show their model in the temperature
		and relative humidity plane.
	*/
	bool isPlaneChart() const { return m_type == MT_Isopleth || m_type == MT_WTA; }
	/*! Updates the one extractor of a chart other than a line chart and announces all of the
		chart's series as changed.
	*/
	void updateSingleEntry();
	/*! Takes the axis units of the chart model as target units of all extractors. */
	void setTargetUnitsFromAxes();
	/*! Updates all extractors; the chart model announces the changed series. */
	void updateAllEntries();
	/*! Sets the axis units and default titles of a new chart from its first extractor. */
	void setupNewChart();
	/*! Sets the target units of an entry from the chart axes (2D series: the axis of the series). */
	void setTargetUnitsFromAxes(ExtractorEntry & entry, bool leftAxis) const;
	/*! Updates the extractor of an entry and remembers the container revisions. */
	void updateEntry(ExtractorEntry & entry) const;
	/*! Refreshes the containers of an entry; true when one of them changed since the last update. */
	bool refreshEntry(ExtractorEntry & entry, DATAIO::DataIO::RefreshMode mode) const;

	QString								m_name;
	DataManager &						m_dataManager;
	MapperType							m_type = MT_Empty;
	/*! Entries of the series of a line chart, in series order. */
	std::vector<ExtractorEntry>			m_2DExtractors;
	/*! Entry of the one extractor of the other charts (colour grid, vector field, isopleth, WTA). */
	ExtractorEntry						m_3DExtractor;
	std::unique_ptr<SCI::AbstractCartesianChartModel>	m_chartModel;
	/*! The extractors wait for extractPendingData() (read with ExtractWhenNeeded). */
	bool								m_dataPending = false;
	/*! The plot; guarded, because a view that re-parented it may have deleted it. */
	QPointer<SCI::Chart>				m_chart;
};

} // namespace OVP

#endif // OVP_MapperH
