#ifndef OVP_DataSetPropertyPageH
#define OVP_DataSetPropertyPageH

#include <vector>

#include <QPointer>

#include "OVP_DataSetSetup.h"
#include "OVP_PropertyPage.h"

namespace OVP {

class DataSetChoices;
class Mapper;

/*! The page of one data set of a chart (an extractor entry as Mapper::dataSetSetup() counts):
	the file(s) with quantity and unit, the data set of a reference column, the cut type and the
	cut values, the manipulators in order and, for two files combined by a model, the model and
	every parameter with its default and range (and of the isopleth model the line set).

	An edit builds a new setup from the entry's current one and hands it to
	ProjectHandler::setDataSetSetup(), which makes it an undo step; a setup the chart refuses
	changes nothing and is told with editRefused(). The page follows the chart: after an undo, a
	refresh of a growing file (a cut that follows the last time point shows the new last time),
	a series inserted or removed before it. When its data set is removed or its chart is
	deleted, the page is empty.
*/
class DataSetPropertyPage : public PropertyPage {
	Q_OBJECT
public:
	DataSetPropertyPage(Mapper & mapper, unsigned int entryIndex, QObject * parent = nullptr);

	/*! "Data set '<series title or chart name>'". */
	QString title() const override;
	/*! The title of the page of entry entryIndex of mapper, also before the page is made. */
	static QString pageTitle(const Mapper & mapper, unsigned int entryIndex);
	/*! The entry shown now; it follows series inserted or removed before it. */
	unsigned int entryIndex() const { return m_entryIndex; }

protected:
	void onEditRequested(QPB::Property * property, const QVariant & newValue) override;

private:
	/*! What a property row edits (its tag's x); the tag's y is the dimension, manipulator or
		model parameter number. */
	enum RowKind {
		RK_ReadOnly,
		RK_CutType,
		RK_CutIndex,
		RK_Manipulator,
		RK_ManipulatorParameter,
		RK_AddManipulator,
		RK_ModelParameter,
		RK_IsoplethLines
	};

	/*! Shows the entry as it is now: builds the rows again when the kind of rows changed (another
		cut type, number of manipulators, model), else only sets their values. */
	void reload();
	/*! Creates the rows of a setup. */
	void build(const DataSetSetup & setup, const DataSetChoices & choices);
	/*! Sets the values (and the coordinates of the cut values) of the rows. */
	void showValues(const DataSetSetup & setup, const DataSetChoices & choices);
	/*! The current setup with the edit of property to value; false when the edit is no change
		of the setup. Throws ZEB::Exception for a table of isopleth lines that cannot be read. */
	bool editedSetup(const QPB::Property & property, const QVariant & value, DataSetSetup & setup) const;
	/*! Adds a row that edits kind with number index. */
	QPB::Property * addRow(QPB::Property * parent, const QString & name, const QString & typeId,
						   const QVariant & value, RowKind kind, int index = 0);
	/*! Keeps the entry index in step with series start..end inserted or removed; a removed
		entry empties the page. */
	void onSeriesMoved(int start, int end, bool inserted);
	/*! True while the chart and the entry exist. */
	bool isValid() const;

	QPointer<Mapper>		m_mapper;
	unsigned int			m_entryIndex;
	/*! False once the entry was removed. */
	bool					m_entryExists = true;
	/*! What the rows were built for; other rows are needed when it changes. */
	QString					m_structure;
	/*! The rows by kind, to show new values in. */
	std::vector<QPB::Property *>	m_fileRows;
	std::vector<QPB::Property *>	m_quantityRows;
	QPB::Property *			m_dataSetRow = nullptr;
	QPB::Property *			m_cutTypeRow = nullptr;
	std::vector<QPB::Property *>	m_cutIndexRows;
	std::vector<QPB::Property *>	m_manipulatorRows;
	std::vector<QPB::Property *>	m_parameterRows;
	std::vector<QPB::Property *>	m_modelParameterRows;
	QPB::Property *			m_isoplethLinesRow = nullptr;
};

} // namespace OVP

#endif // OVP_DataSetPropertyPageH
