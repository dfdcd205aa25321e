#ifndef OVP_DataSetOptionsWidgetH
#define OVP_DataSetOptionsWidgetH

#include <vector>

#include <QWidget>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QSpinBox;
class QStackedWidget;

namespace QtExt {
class ValidatingLineEdit;
}

namespace OVP {

class DataSetOptions;

/*! The option panel beside the data manager's table, a view of DataSetOptions: one page for 2D
	data sets (line or bar chart with the bars' period, statistic and threshold, the manipulator
	and, for two data sets, the model with its parameters), one for a
	field or flux data set (cut type, cut indices with their coordinates, following the last time
	point), and a page with a hint while the selection makes no chart. Above the pages, the data
	sets of selected reference collections with a check box each, to leave some out. A typed value is taken
	with Enter or when its field loses the focus, Escape puts the last one back; number fields
	refuse what is no number or outside a parameter's range, the options judge the rest. Numbers
	are shown with the decimal places of the settings. The buttons ask for "create chart" and
	"add to current chart"; they are disabled while a field refuses its text, and the reason is
	shown where the options show their messages.
*/
class DataSetOptionsWidget : public QWidget {
	Q_OBJECT
public:
	/*! A panel showing and editing options, which must outlive it. */
	explicit DataSetOptionsWidget(DataSetOptions & options, QWidget * parent = nullptr);

signals:
	/*! The user asked to create a chart of the selection. */
	void createChartRequested();
	/*! The user asked to add the selection to the current chart. */
	void addToChartRequested();

private slots:
	/*! Builds the fields for the current selection, cut type and model, then shows the values. */
	void rebuild();
	/*! Shows the current values and messages in the fields. */
	void updateValues();
	/*! Shows the messages (of the options, else of a field refusing its text) and enables the
		buttons while the options are complete and no field refuses its text.
	*/
	void updateState();

private:
	/*! The page of 2D data sets. */
	QWidget * create2DPage();
	/*! The box choosing lines or bars, with the settings of the bars. */
	QWidget * createChartKindBox(QWidget * parent);
	/*! The page of a field or flux data set. */
	QWidget * createFieldPage();
	/*! The parameter fields of the chosen model. */
	void rebuildModelFields();
	/*! The index fields of the chosen cut type. */
	void rebuildCutFields();
	/*! The box listing the data sets of reference collections. */
	QWidget * createDataSetBox();
	/*! Lists the data sets of the reference collections of the selection; hides the box when
		there are none.
	*/
	void rebuildDataSetList();
	/*! Shows which data sets are used. */
	void updateDataSetList();
	/*! Takes the check state of a listed data set. */
	void dataSetItemChanged(QListWidgetItem * item);
	/*! Tab order in the order of the fields on screen. */
	void updateTabOrder();

	/*! The index field of one cut dimension and the label of its coordinate. */
	struct CutRow {
		unsigned int	m_dimension;
		QSpinBox *		m_index;
		QLabel *		m_value;
	};

	DataSetOptions &			m_options;
	QStackedWidget *			m_pages = nullptr;
	QLabel *					m_hint = nullptr;

	QGroupBox *					m_dataSetBox = nullptr;
	QListWidget *				m_dataSetList = nullptr;
	QLabel *					m_dataSetError = nullptr;

	QComboBox *					m_chartKindCombo = nullptr;
	QWidget *					m_barFields = nullptr;
	QComboBox *					m_periodCombo = nullptr;
	QComboBox *					m_statisticCombo = nullptr;
	QtExt::ValidatingLineEdit *	m_thresholdEdit = nullptr;

	QGroupBox *					m_modelBox = nullptr;
	QComboBox *					m_modelCombo = nullptr;
	QFormLayout *				m_modelForm = nullptr;
	std::vector<QtExt::ValidatingLineEdit *>	m_modelEdits;
	QLabel *					m_modelError = nullptr;
	QComboBox *					m_manipulatorCombo = nullptr;
	QLabel *					m_parameterLabel = nullptr;
	QtExt::ValidatingLineEdit *	m_parameterEdit = nullptr;
	QLabel *					m_manipulatorError = nullptr;

	QComboBox *					m_cutTypeCombo = nullptr;
	QFormLayout *				m_cutForm = nullptr;
	std::vector<CutRow>			m_cutRows;
	QCheckBox *					m_followLast = nullptr;

	QPushButton *				m_createButton = nullptr;
	QPushButton *				m_addButton = nullptr;
};

} // namespace OVP

#endif // OVP_DataSetOptionsWidgetH
