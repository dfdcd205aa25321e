#include "OVP_DataSetOptionsWidget.h"

#include <cmath>
#include <functional>

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <EM_CutType.h>

#include <QtExt_ValidatingLineEdit.h>

#include "OVP_DataSetOptions.h"
#include "OVP_Settings.h"

namespace OVP {

namespace {

/*! The pages of the panel. */
enum Page {
	P_Hint,
	P_2D,
	P_Field
};

/*! A label for the messages of refused values. */
QLabel * errorLabel(QWidget * parent) {
	QLabel * label = new QLabel(parent);
	label->setWordWrap(true);
	label->setStyleSheet("color: #b00000");
	return label;
}

/*! Shows the message of the options in an error label or, while they have none, why a field
	refuses its text; hides the label when there is neither.
*/
void showMessage(QLabel * label, const QString & optionsMessage, const QString & refused) {
	label->setText(optionsMessage.isEmpty() ? refused : optionsMessage);
	label->setVisible(!label->text().isEmpty());
}

/*! Decimal places of the numbers shown in the panel (setting "DecimalPlaces"). */
int decimalPlaces() {
	return Settings::instance().m_decimalPlaces;
}

/*! A number as the panel shows it: in the user's locale with the decimal places of the
	settings, trailing zeros trimmed (a default of 0.5 reads "0.5", not "0.500000").
*/
QString numberText(double value) {
	return QtExt::ValidatingLineEdit::formatNumber(value, decimalPlaces(), QLocale());
}

/*! A number as the options take it: the C form, as short as it can be written exactly. */
QString optionText(double value, bool integer) {
	return integer ? QString::number(static_cast<long long>(value))
				   : QString::number(value, 'g', QLocale::FloatingPointShortest);
}

/*! A field for a whole or floating-point number: it refuses texts that are no number (or outside
	a parameter's range) before they reach the options, which stay the judges of the value.
*/
QtExt::ValidatingLineEdit * numberEdit(bool integer, QWidget * parent) {
	QtExt::ValidatingLineEdit * edit = new QtExt::ValidatingLineEdit(parent);
	edit->setInteger(integer);
	return edit;
}

/*! Shows the value text of the options in a number field, in the user's form, unless the field
	shows that value already (keeps the cursor while editing). A text that is no number is shown
	as it is, and the field marks it.
*/
void showValue(QtExt::ValidatingLineEdit * edit, const QString & text) {
	bool isNumber = false;
	const double value = text.trimmed().toDouble(&isNumber);
	if (isNumber && edit->isValid() && edit->value() == value)
		return;
	if (isNumber) {
		edit->setDecimals(decimalPlaces());
		edit->setValue(value);
	}
	else if (edit->text() != text)
		edit->setText(text);
}

/*! Selects the combo box item with the given data without announcing it. */
void selectItem(QComboBox * combo, const QVariant & data) {
	const QSignalBlocker blocker(combo);
	combo->setCurrentIndex(combo->findData(data));
}

/*! Removes all rows of a form layout after disconnecting its fields from receiver. */
void clearForm(QFormLayout * form, QObject * receiver) {
	for (int r = 0; r < form->rowCount(); ++r) {
		QLayoutItem * field = form->itemAt(r, QFormLayout::FieldRole);
		if (field != nullptr && field->widget() != nullptr) {
			QObject::disconnect(field->widget(), nullptr, receiver, nullptr);
			for (QObject * child : field->widget()->children())
				QObject::disconnect(child, nullptr, receiver, nullptr);
		}
	}
	while (form->rowCount() > 0)
		form->removeRow(0);
}

/*! Shows a page; only the page shown counts for the size of the panel. */
void showPage(QStackedWidget * pages, int page) {
	for (int i = 0; i < pages->count(); ++i) {
		const QSizePolicy::Policy policy = i == page ? QSizePolicy::Preferred : QSizePolicy::Ignored;
		pages->widget(i)->setSizePolicy(policy, policy);
	}
	pages->setCurrentIndex(page);
}

} // namespace


DataSetOptionsWidget::DataSetOptionsWidget(DataSetOptions & options, QWidget * parent) :
	QWidget(parent),
	m_options(options)
{
	m_pages = new QStackedWidget(this);
	m_hint = new QLabel(m_pages);
	m_hint->setWordWrap(true);
	m_hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
	m_pages->insertWidget(P_Hint, m_hint);
	m_pages->insertWidget(P_2D, create2DPage());
	m_pages->insertWidget(P_Field, createFieldPage());

	m_createButton = new QPushButton(tr("Create chart"), this);
	m_createButton->setObjectName("createChart");
	m_addButton = new QPushButton(tr("Add to current chart"), this);
	m_addButton->setObjectName("addToChart");
	connect(m_createButton, &QPushButton::clicked, this, &DataSetOptionsWidget::createChartRequested);
	connect(m_addButton, &QPushButton::clicked, this, &DataSetOptionsWidget::addToChartRequested);

	QHBoxLayout * buttons = new QHBoxLayout;
	buttons->addWidget(m_createButton);
	buttons->addWidget(m_addButton);
	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->addWidget(createDataSetBox());
	layout->addWidget(m_pages);
	layout->addLayout(buttons);
	layout->addStretch(1);

	connect(&m_options, &DataSetOptions::structureChanged, this, &DataSetOptionsWidget::rebuild);
	connect(&m_options, &DataSetOptions::valuesChanged, this, &DataSetOptionsWidget::updateValues);
	rebuild();
}


QWidget * DataSetOptionsWidget::createChartKindBox(QWidget * parent) {
	QGroupBox * box = new QGroupBox(tr("Chart"), parent);
	m_chartKindCombo = new QComboBox(box);
	m_chartKindCombo->setObjectName("chartKindCombo");
	m_chartKindCombo->addItem(tr("Line chart"), DataSetOptions::CK_Line);
	m_chartKindCombo->addItem(tr("Bar chart"), DataSetOptions::CK_Bar);
	connect(m_chartKindCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int i) {
		m_options.setChartKind(static_cast<DataSetOptions::ChartKind>(m_chartKindCombo->itemData(i).toInt()));
	});

	m_barFields = new QWidget(box);
	m_periodCombo = new QComboBox(m_barFields);
	m_periodCombo->setObjectName("barPeriodCombo");
	for (int p = 0; p < BarAggregation::NUM_P; ++p)
		m_periodCombo->addItem(BarAggregation::periodText(static_cast<BarAggregation::Period>(p)), p);
	m_statisticCombo = new QComboBox(m_barFields);
	m_statisticCombo->setObjectName("barStatisticCombo");
	for (int s = 0; s < BarAggregation::NUM_S; ++s)
		m_statisticCombo->addItem(BarAggregation::statisticText(static_cast<BarAggregation::Statistic>(s)), s);
	m_thresholdEdit = numberEdit(false, m_barFields);
	m_thresholdEdit->setObjectName("barThreshold");
	m_thresholdEdit->setToolTip(tr("Days count when their daily mean lies above the threshold, given in the unit of "
								   "the (first) data set."));
	const auto changeSettings = [this](const std::function<void(BarAggregation::Settings &)> & change) {
		BarAggregation::Settings settings = m_options.barAggregation();
		change(settings);
		m_options.setBarAggregation(settings);
	};
	connect(m_periodCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, changeSettings](int i) {
		changeSettings([this, i](BarAggregation::Settings & s) {
			s.m_period = static_cast<BarAggregation::Period>(m_periodCombo->itemData(i).toInt());
		});
	});
	connect(m_statisticCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, changeSettings](int i) {
		changeSettings([this, i](BarAggregation::Settings & s) {
			s.m_statistic = static_cast<BarAggregation::Statistic>(m_statisticCombo->itemData(i).toInt());
		});
	});
	connect(m_thresholdEdit, &QtExt::ValidatingLineEdit::valueConfirmed, this, [changeSettings](double value) {
		changeSettings([value](BarAggregation::Settings & s) { s.m_threshold = value; });
	});
	connect(m_thresholdEdit, &QLineEdit::textChanged, this, &DataSetOptionsWidget::updateState);
	QFormLayout * barForm = new QFormLayout(m_barFields);
	barForm->setContentsMargins(0, 0, 0, 0);
	barForm->addRow(tr("Period:"), m_periodCombo);
	barForm->addRow(tr("Statistic:"), m_statisticCombo);
	barForm->addRow(tr("Threshold:"), m_thresholdEdit);

	QVBoxLayout * layout = new QVBoxLayout(box);
	layout->addWidget(m_chartKindCombo);
	layout->addWidget(m_barFields);
	return box;
}


QWidget * DataSetOptionsWidget::create2DPage() {
	QWidget * page = new QWidget(m_pages);
	QWidget * chartKindBox = createChartKindBox(page);

	m_modelBox = new QGroupBox(tr("Model"), page);
	m_modelCombo = new QComboBox(m_modelBox);
	m_modelCombo->setObjectName("modelCombo");
	for (const std::string & type : ModelOptions::modelTypes())
		m_modelCombo->addItem(ModelOptions::modelText(type), QString::fromStdString(type));
	connect(m_modelCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int i) {
		m_options.setModelType(m_modelCombo->itemData(i).toString().toStdString());
	});
	m_modelForm = new QFormLayout;
	m_modelError = errorLabel(m_modelBox);
	m_modelError->setObjectName("modelError");
	QVBoxLayout * modelLayout = new QVBoxLayout(m_modelBox);
	modelLayout->addWidget(m_modelCombo);
	modelLayout->addLayout(m_modelForm);
	modelLayout->addWidget(m_modelError);

	QGroupBox * manipulatorBox = new QGroupBox(tr("Manipulator"), page);
	m_manipulatorCombo = new QComboBox(manipulatorBox);
	m_manipulatorCombo->setObjectName("manipulatorCombo");
	for (int c = 0; c < ManipulatorOptions::NUM_MC; ++c)
		m_manipulatorCombo->addItem(ManipulatorOptions::text(static_cast<ManipulatorOptions::Choice>(c)), c);
	connect(m_manipulatorCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int i) {
		m_options.setManipulator(static_cast<ManipulatorOptions::Choice>(m_manipulatorCombo->itemData(i).toInt()));
	});
	m_parameterLabel = new QLabel(manipulatorBox);
	m_parameterLabel->setObjectName("manipulatorLabel");
	m_parameterEdit = numberEdit(false, manipulatorBox);
	m_parameterEdit->setObjectName("manipulatorParameter");
	m_parameterLabel->setBuddy(m_parameterEdit);
	connect(m_parameterEdit, &QtExt::ValidatingLineEdit::valueConfirmed, this, [this](double value) {
		m_options.setManipulatorParameter(optionText(value, false));
	});
	connect(m_parameterEdit, &QLineEdit::textChanged, this, &DataSetOptionsWidget::updateState);
	m_manipulatorError = errorLabel(manipulatorBox);
	m_manipulatorError->setObjectName("manipulatorError");
	QGridLayout * manipulatorLayout = new QGridLayout(manipulatorBox);
	manipulatorLayout->addWidget(m_manipulatorCombo, 0, 0, 1, 2);
	manipulatorLayout->addWidget(m_parameterLabel, 1, 0);
	manipulatorLayout->addWidget(m_parameterEdit, 1, 1);
	manipulatorLayout->addWidget(m_manipulatorError, 2, 0, 1, 2);

	QVBoxLayout * layout = new QVBoxLayout(page);
	layout->setContentsMargins(0, 0, 0, 0);
	layout->addWidget(chartKindBox);
	layout->addWidget(m_modelBox);
	layout->addWidget(manipulatorBox);
	layout->addStretch(1);
	return page;
}


QWidget * DataSetOptionsWidget::createFieldPage() {
	QWidget * page = new QWidget(m_pages);
	QGroupBox * box = new QGroupBox(tr("Cut"), page);
	m_cutTypeCombo = new QComboBox(box);
	m_cutTypeCombo->setObjectName("cutTypeCombo");
	connect(m_cutTypeCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int i) {
		m_options.setCutType(static_cast<EM::CutType>(m_cutTypeCombo->itemData(i).toInt()));
	});
	m_cutForm = new QFormLayout;
	m_followLast = new QCheckBox(tr("follow last time point"), box);
	m_followLast->setObjectName("followLastTimePoint");
	connect(m_followLast, &QCheckBox::toggled, this, [this](bool follow) { m_options.setFollowLastTimePoint(follow); });

	QVBoxLayout * boxLayout = new QVBoxLayout(box);
	boxLayout->addWidget(m_cutTypeCombo);
	boxLayout->addLayout(m_cutForm);
	boxLayout->addWidget(m_followLast);
	QVBoxLayout * layout = new QVBoxLayout(page);
	layout->setContentsMargins(0, 0, 0, 0);
	layout->addWidget(box);
	layout->addStretch(1);
	return page;
}


void DataSetOptionsWidget::rebuild() {
	rebuildDataSetList();
	switch (m_options.selectionKind()) {
		case DataSetOptions::SK_None :
			m_hint->setText(tr("Select data sets in the table to see their options."));
			showPage(m_pages, P_Hint);
			break;
		case DataSetOptions::SK_Unsupported :
			m_hint->setText(m_options.selectionMessage());
			showPage(m_pages, P_Hint);
			break;
		case DataSetOptions::SK_Series :
		case DataSetOptions::SK_TwoSeries :
			m_modelBox->setVisible(m_options.selectionKind() == DataSetOptions::SK_TwoSeries);
			rebuildModelFields();
			showPage(m_pages, P_2D);
			break;
		case DataSetOptions::SK_Field : {
			const QSignalBlocker blocker(m_cutTypeCombo);
			m_cutTypeCombo->clear();
			for (EM::CutType c : m_options.cut().cutTypes())
				m_cutTypeCombo->addItem(EM::CutTypes::keyword(c), static_cast<int>(c));
			rebuildCutFields();
			showPage(m_pages, P_Field);
		} break;
	}
	updateTabOrder();
	updateValues();
}


void DataSetOptionsWidget::rebuildModelFields() {
	clearForm(m_modelForm, this);
	m_modelEdits.clear();
	const std::vector<EM::ModelParameter> & parameters = m_options.model().parameters();
	for (unsigned int i = 0; i < parameters.size(); ++i) {
		const EM::ModelParameter & p = parameters[i];
		QtExt::ValidatingLineEdit * edit = numberEdit(p.m_integer, m_modelBox);
		edit->setObjectName("modelParameter");
		edit->setMinimum(p.m_minimum);
		edit->setMaximum(p.m_maximum);
		const QString minimum = std::isfinite(p.m_minimum) ? numberText(p.m_minimum) : tr("any");
		const QString maximum = std::isfinite(p.m_maximum) ? numberText(p.m_maximum) : tr("any");
		const QString range = !std::isfinite(p.m_minimum) && !std::isfinite(p.m_maximum) ? tr("any number")
			: tr("from %1 to %2").arg(minimum, maximum);
		edit->setToolTip(tr("%1, default %2, valid %3").arg(QString::fromUtf8(p.m_description))
						 .arg(numberText(p.m_default)).arg(range));
		edit->setPlaceholderText(numberText(p.m_default));
		const bool integer = p.m_integer;
		connect(edit, &QtExt::ValidatingLineEdit::valueConfirmed, this, [this, i, integer](double value) {
			m_options.setModelValue(i, optionText(value, integer));
		});
		connect(edit, &QLineEdit::textChanged, this, &DataSetOptionsWidget::updateState);
		m_modelForm->addRow(QString("%1 (%2):").arg(p.m_key, QString::fromUtf8(p.m_description)), edit);
		m_modelEdits.push_back(edit);
	}
}


void DataSetOptionsWidget::rebuildCutFields() {
	clearForm(m_cutForm, this);
	m_cutRows.clear();
	const CutOptions & cut = m_options.cut();
	bool cutsTime = false;
	for (unsigned int d : cut.cutDimensions()) {
		cutsTime = cutsTime || d == EM::CD_Time;
		QWidget * field = new QWidget(m_cutForm->parentWidget());
		QSpinBox * index = new QSpinBox(field);
		index->setObjectName("cutIndex");
		index->setRange(0, std::max(0, static_cast<int>(cut.coordinates(d).size()) - 1));
		QLabel * value = new QLabel(field);
		QHBoxLayout * fieldLayout = new QHBoxLayout(field);
		fieldLayout->setContentsMargins(0, 0, 0, 0);
		fieldLayout->addWidget(index);
		fieldLayout->addWidget(value, 1);
		connect(index, QOverload<int>::of(&QSpinBox::valueChanged), this, [this, d](int i) {
			m_options.setCutIndex(d, static_cast<unsigned int>(i));
		});
		m_cutForm->addRow(tr("%1 index:").arg(cut.dimensionName(d)), field);
		m_cutRows.push_back(CutRow{ d, index, value });
	}
	m_followLast->setVisible(cutsTime);
}


void DataSetOptionsWidget::updateValues() {
	updateDataSetList();
	const DataSetOptions::SelectionKind kind = m_options.selectionKind();
	if (kind == DataSetOptions::SK_Series || kind == DataSetOptions::SK_TwoSeries) {
		const ModelOptions & model = m_options.model();
		selectItem(m_modelCombo, QString::fromStdString(model.modelType()));
		for (unsigned int i = 0; i < m_modelEdits.size(); ++i)
			showValue(m_modelEdits[i], model.value(i));

		const ManipulatorOptions & manipulator = m_options.manipulator();
		selectItem(m_manipulatorCombo, static_cast<int>(manipulator.choice()));
		const QString label = ManipulatorOptions::parameterLabel(manipulator.choice());
		m_parameterLabel->setText(label);
		m_parameterLabel->setVisible(!label.isEmpty());
		m_parameterEdit->setVisible(!label.isEmpty());
		showValue(m_parameterEdit, manipulator.parameter());

		const BarAggregation::Settings & bars = m_options.barAggregation();
		selectItem(m_chartKindCombo, static_cast<int>(m_options.chartKind()));
		m_barFields->setVisible(m_options.chartKind() == DataSetOptions::CK_Bar);
		selectItem(m_periodCombo, static_cast<int>(bars.m_period));
		selectItem(m_statisticCombo, static_cast<int>(bars.m_statistic));
		m_thresholdEdit->setEnabled(bars.countsDays());
		showValue(m_thresholdEdit, optionText(bars.m_threshold, false));
	}
	else if (kind == DataSetOptions::SK_Field) {
		const CutOptions & cut = m_options.cut();
		selectItem(m_cutTypeCombo, static_cast<int>(cut.cutType()));
		for (const CutRow & row : m_cutRows) {
			const std::vector<double> & coordinates = cut.coordinates(row.m_dimension);
			const unsigned int index = cut.index(row.m_dimension);
			const QSignalBlocker blocker(row.m_index);
			row.m_index->setValue(static_cast<int>(index));
			row.m_index->setEnabled(!coordinates.empty()
									&& !(row.m_dimension == EM::CD_Time && cut.followLastTimePoint()));
			row.m_value->setText(coordinates.empty() ? tr("no values yet")
				: QString("%1 %2").arg(numberText(coordinates[index]), cut.unit(row.m_dimension)));
		}
		const QSignalBlocker blocker(m_followLast);
		m_followLast->setChecked(cut.followLastTimePoint());
	}
	updateState();
}


void DataSetOptionsWidget::updateState() {
	bool complete = m_options.isComplete();
	const DataSetOptions::SelectionKind kind = m_options.selectionKind();
	if (kind == DataSetOptions::SK_Series || kind == DataSetOptions::SK_TwoSeries) {
		QString refused;
		for (const QtExt::ValidatingLineEdit * edit : m_modelEdits)
			if (refused.isEmpty() && kind == DataSetOptions::SK_TwoSeries)
				refused = edit->invalidReason();
		showMessage(m_modelError, m_options.model().errorText(), refused);
		complete = complete && refused.isEmpty();

		const ManipulatorOptions & manipulator = m_options.manipulator();
		refused = ManipulatorOptions::parameterLabel(manipulator.choice()).isEmpty() ? QString()
				: m_parameterEdit->invalidReason();
		showMessage(m_manipulatorError, manipulator.errorText(), refused);
		complete = complete && refused.isEmpty();
		if (m_options.chartKind() == DataSetOptions::CK_Bar && m_options.barAggregation().countsDays())
			complete = complete && m_thresholdEdit->invalidReason().isEmpty();
	}
	m_createButton->setEnabled(complete);
	m_addButton->setEnabled(complete);
}


QWidget * DataSetOptionsWidget::createDataSetBox() {
	m_dataSetBox = new QGroupBox(tr("Data sets"), this);
	m_dataSetList = new QListWidget(m_dataSetBox);
	m_dataSetList->setObjectName("dataSetList");
	connect(m_dataSetList, &QListWidget::itemChanged, this, &DataSetOptionsWidget::dataSetItemChanged);
	m_dataSetError = errorLabel(m_dataSetBox);
	m_dataSetError->setObjectName("dataSetError");
	QVBoxLayout * layout = new QVBoxLayout(m_dataSetBox);
	layout->addWidget(m_dataSetList);
	layout->addWidget(m_dataSetError);
	return m_dataSetBox;
}


void DataSetOptionsWidget::rebuildDataSetList() {
	const std::vector<DataSetOptions::ReferenceDataSet> & dataSets = m_options.referenceDataSets();
	const std::vector<Mapper::DataSet> & selection = m_options.selection();
	bool severalFiles = false;
	for (const Mapper::DataSet & ds : selection)
		severalFiles = severalFiles || ds.m_fileName != selection.front().m_fileName;
	QStringList texts;
	for (const DataSetOptions::ReferenceDataSet & r : dataSets)
		texts << (severalFiles ? QString("%1: %2").arg(QFileInfo(selection[r.m_selectionIndex].m_fileName).fileName(), r.m_name)
							   : r.m_name);
	QStringList shown;
	for (int i = 0; i < m_dataSetList->count(); ++i)
		shown << m_dataSetList->item(i)->text();
	// a change of the selection kind rebuilds the panel, but the list stays with its current item
	if (texts != shown) {
		const QSignalBlocker blocker(m_dataSetList);
		m_dataSetList->clear();
		for (const QString & text : texts) {
			QListWidgetItem * item = new QListWidgetItem(text, m_dataSetList);
			item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
		}
		m_dataSetList->setCurrentRow(0);
	}
	m_dataSetBox->setVisible(!dataSets.empty());
}


void DataSetOptionsWidget::updateDataSetList() {
	const std::vector<DataSetOptions::ReferenceDataSet> & dataSets = m_options.referenceDataSets();
	const QSignalBlocker blocker(m_dataSetList);
	for (int i = 0; i < m_dataSetList->count(); ++i)
		m_dataSetList->item(i)->setCheckState(dataSets[static_cast<std::size_t>(i)].m_used ? Qt::Checked : Qt::Unchecked);
	m_dataSetError->setText(m_options.usedDataSetsErrorText());
	m_dataSetError->setVisible(!m_dataSetError->text().isEmpty());
}


void DataSetOptionsWidget::dataSetItemChanged(QListWidgetItem * item) {
	m_options.setDataSetUsed(static_cast<std::size_t>(m_dataSetList->row(item)), item->checkState() == Qt::Checked);
}


void DataSetOptionsWidget::updateTabOrder() {
	std::vector<QWidget *> chain = { m_dataSetList, m_chartKindCombo, m_periodCombo, m_statisticCombo, m_thresholdEdit,
									 m_modelCombo };
	chain.insert(chain.end(), m_modelEdits.begin(), m_modelEdits.end());
	chain.push_back(m_manipulatorCombo);
	chain.push_back(m_parameterEdit);
	chain.push_back(m_cutTypeCombo);
	for (const CutRow & row : m_cutRows)
		chain.push_back(row.m_index);
	chain.push_back(m_followLast);
	chain.push_back(m_createButton);
	chain.push_back(m_addButton);
	for (std::size_t i = 1; i < chain.size(); ++i)
		setTabOrder(chain[i - 1], chain[i]);
}

} // namespace OVP
