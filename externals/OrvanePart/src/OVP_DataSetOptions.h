#ifndef OVP_DataSetOptionsH
#define OVP_DataSetOptionsH

#include <memory>
#include <string>
#include <vector>

#include <QObject>
#include <QString>

#include "OVP_BarAggregation.h"
#include "OVP_CutOptions.h"
#include "OVP_ManipulatorOptions.h"
#include "OVP_Mapper.h"
#include "OVP_ModelOptions.h"

namespace DATAIO {
class DataIO;
}

namespace OVP {

class DataManager;

/*! The options beside the data manager's table for the data sets selected there: a cut for one
	field or flux data set, a manipulator for 2D data sets and, for two 2D data sets, a model
	that combines them; for 2D data sets also the kind of chart that "create chart" makes (lines,
	or bars with their period, statistic and threshold); the data sets of a reference collection can be left out one by one.
	series() turns selection and options into what "create chart" and "add to current chart"
	pass to the mapper.

	The option panel shows and edits this state; every change goes through the setters here,
	which announce it: structureChanged() when the panel needs other fields (new selection, cut
	type, model), valuesChanged() when only values changed.
*/
class DataSetOptions : public QObject {
	Q_OBJECT
public:
	/*! What the selection makes. */
	enum SelectionKind {
		SK_None,			///< nothing selected
		SK_Series,			///< 2D data sets: one line series each
		SK_TwoSeries,		///< two 2D data sets: one series each, or one series of a model
		SK_Field,			///< one field or flux data set: a cut of it
		SK_Unsupported		///< no chart can be made; selectionMessage() tells why
	};

	/*! The kind of chart made of 2D data sets. */
	enum ChartKind {
		CK_Line,
		CK_Bar
	};

	/*! One series of a chart: the arguments of Mapper::createNewMapper() and addExtractor(). */
	struct Series {
		std::vector<Mapper::DataSet>	m_dataSets;
		std::string						m_modelType;
		std::string						m_modelParameter;
		Mapper::ManipulatorList			m_manipulators;
	};

	/*! A data set of a reference collection in the selection, which series() takes only while
		it is used.
	*/
	struct ReferenceDataSet {
		/*! Its position in selection(). */
		std::size_t	m_selectionIndex;
		/*! The name the collection gives its column. */
		QString		m_name;
		bool		m_used;
	};

	/*! Options that open the selected files through dataManager. */
	explicit DataSetOptions(DataManager & dataManager, QObject * parent = nullptr);
	~DataSetOptions() override;

	/*! Takes the data sets selected in the table (file and column); their files are opened
		(header and time points) and their headers checked as the table checks them (a file may
		have changed since it was listed): one that fails makes the selection unsupported. The cut is set up anew for a field or flux data set; the
		manipulator and model choices stay. All data sets of reference collections are used.
	*/
	void setSelection(const std::vector<Mapper::DataSet> & dataSets);
	const std::vector<Mapper::DataSet> & selection() const { return m_selection; }
	SelectionKind selectionKind() const { return m_kind; }
	/*! Why the selection makes no chart (SK_Unsupported), else empty. */
	const QString & selectionMessage() const { return m_message; }

	/*! The data sets of the reference collections in the selection, in selection order. */
	const std::vector<ReferenceDataSet> & referenceDataSets() const { return m_referenceDataSets; }
	/*! The selection without the unused data sets of reference collections. */
	std::vector<Mapper::DataSet> usedDataSets() const;
	/*! Why no data set can be charted when none is used, else empty. */
	QString usedDataSetsErrorText() const;

	/*! The cut of a field or flux data set; throws ZEB::Exception unless SK_Field. */
	const CutOptions & cut() const;
	const ManipulatorOptions & manipulator() const { return m_manipulator; }
	const ModelOptions & model() const { return m_model; }

	/*! Setters of the options, see the option classes; each announces the change. The cut
		setters throw ZEB::Exception unless SK_Field. A setter that throws changes nothing.
		Whether two 2D data sets are selected counts the used ones: using a data set may
		change the kind, and then structureChanged() is announced.
	*/
	void setDataSetUsed(std::size_t i, bool used);
	void setCutType(EM::CutType cutType);
	void setCutIndex(unsigned int dimension, unsigned int index);
	void setFollowLastTimePoint(bool follow);
	void setManipulator(ManipulatorOptions::Choice choice);
	void setManipulatorParameter(const QString & parameter);
	void setModelType(const std::string & modelType);
	void setModelValue(unsigned int i, const QString & value);
	/*! The kind of chart; the bar settings stay when lines are chosen. */
	void setChartKind(ChartKind kind);
	void setBarAggregation(const BarAggregation::Settings & settings);

	ChartKind chartKind() const { return m_chartKind; }
	const BarAggregation::Settings & barAggregation() const { return m_barAggregation; }
	/*! The kind Mapper::createNewMapper() is asked for: MT_Bar for bars of 2D data sets,
		otherwise MT_Empty (the data decide).
	*/
	Mapper::MapperType mapperKind() const;

	/*! True when series() gives a chart: a supported selection with accepted parameters. */
	bool isComplete() const;
	/*! The series of the selection with the options, in order: one per used 2D data set, one
		for two 2D data sets with a model, one for a field or flux data set. Throws
		ZEB::Exception for an empty or unsupported selection, for a selection without used data
		set and for parameters the manipulator or model refuses.
	*/
	std::vector<Series> series() const;

signals:
	/*! The selection, cut type or model changed: the fields of the panel change. */
	void structureChanged();
	/*! A value of the current fields changed. */
	void valuesChanged();

private:
	/*! Opens the files of the selection and decides its kind; throws ZEB::Exception. */
	void classifySelection();
	/*! Lists the data sets of the selection that belong to reference collections; throws
		ZEB::Exception for a column the file does not have.
	*/
	void listReferenceDataSets();
	/*! The kind of a selection of used 2D data sets. */
	SelectionKind seriesKind() const;
	/*! The cut; throws ZEB::Exception with the function id when the selection has none. */
	CutOptions & requireCut(const char * functionId) const;

	DataManager &									m_dataManager;
	std::vector<Mapper::DataSet>					m_selection;
	/*! The opened files of the selection, held so that they stay open for the chart. */
	std::vector<std::shared_ptr<DATAIO::DataIO> >	m_dataIOs;
	std::vector<ReferenceDataSet>					m_referenceDataSets;
	SelectionKind									m_kind = SK_None;
	QString											m_message;
	std::unique_ptr<CutOptions>						m_cut;
	ManipulatorOptions								m_manipulator;
	ModelOptions									m_model;
	ChartKind										m_chartKind = CK_Line;
	BarAggregation::Settings						m_barAggregation;
};

} // namespace OVP

#endif // OVP_DataSetOptionsH
