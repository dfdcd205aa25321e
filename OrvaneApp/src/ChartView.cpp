#include "ChartView.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <ZEB_FunctionId.h>
#include <ZEB_MessageHandler.h>

#include <OVP_DataSetMimeData.h>

#include <OVP_ChartDataTableModel.h>

#include <Sci_AbstractCartesianChartModel.h>
#include <Sci_Chart.h>

#include "ChartTableView.h"

ChartView::ChartView(int widgetId, QWidget * parent) :
	QFrame(parent),
	m_widgetId(widgetId)
{
	setFrameShape(QFrame::StyledPanel);
	// the chart and the header take no drops themselves, so that drops on them reach the view
	setAcceptDrops(true);

	QWidget * header = new QWidget(this);
	header->setObjectName("chartViewHeader");
	QHBoxLayout * headerLayout = new QHBoxLayout(header);
	headerLayout->setContentsMargins(6, 3, 6, 3);
	QLabel * label = new QLabel(tr("Chart:"), header);
	// the list takes the width of the view, down to a few characters: long chart names are
	// elided in a narrow view and shown whole in the drop-down list
	m_chartList = new QComboBox(header);
	m_chartList->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
	m_chartList->setMinimumContentsLength(CHART_LIST_MINIMUM_CHARACTERS);
	m_chartList->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
	m_chartList->installEventFilter(this);
	headerLayout->addWidget(label);
	headerLayout->addWidget(m_chartList, 1);
	m_tableButton = new QToolButton(header);
	m_tableButton->setObjectName("viewTableButton");
	m_tableButton->setText(tr("Data table"));
	// the icon alone keeps the header narrow, so that views can be split further
	m_tableButton->setIcon(style()->standardIcon(QStyle::SP_FileDialogDetailedView));
	m_tableButton->setToolButtonStyle(Qt::ToolButtonIconOnly);
	m_tableButton->setAutoRaise(true);
	m_tableButton->setToolTip(tr("Switches between the chart and its data as a table (Ctrl+T)"));
	m_tableButton->setCheckable(true);
	headerLayout->addWidget(m_tableButton);

	m_placeholder = new QLabel(this);
	m_placeholder->setObjectName("chartViewPlaceholder");
	m_placeholder->setAlignment(Qt::AlignCenter);
	m_placeholder->setWordWrap(true);

	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->setContentsMargins(1, 1, 1, 1);
	layout->setSpacing(0);
	layout->addWidget(header);
	m_contentLayout = new QVBoxLayout;
	m_contentLayout->setContentsMargins(4, 4, 4, 4);
	m_contentLayout->addWidget(m_placeholder);
	m_table = new ChartTableView(this);
	m_table->hide();
	m_contentLayout->addWidget(m_table);
	m_table->installEventFilter(this);
	m_table->viewport()->installEventFilter(this);
	layout->addLayout(m_contentLayout, 1);

	connect(m_chartList, QOverload<int>::of(&QComboBox::activated), this, &ChartView::onChartListActivated);
	connect(m_tableButton, &QToolButton::clicked, this, [this](bool viewTable) {
		emit activated(m_widgetId);
		emit viewTableRequested(m_widgetId, viewTable);
	});
	connect(m_table, &ChartTableView::showChartRequested, this, [this]() {
		emit activated(m_widgetId);
		emit viewTableRequested(m_widgetId, false);
	});
	setFocused(false);
}


ChartView::~ChartView() {
	detachChart();
}


SCI::Chart * ChartView::chart() const {
	return m_chart.data();
}


void ChartView::setContent(const QStringList & mapperNames, int mapperIndex, SCI::Chart * chart, bool viewTable) {
	m_chartList->clear();
	m_chartList->addItem(tr("(no chart)"));
	for (int i = 0; i < mapperNames.size(); ++i)
		m_chartList->addItem(tr("#%1 %2").arg(i + 1).arg(mapperNames[i]));
	m_chartList->setCurrentIndex(mapperIndex + 1);
	m_chartList->view()->setMinimumWidth(m_chartList->view()->sizeHintForColumn(0));
	m_mapperIndex = mapperIndex;

	if (chart != m_chart.data()) {
		detachChart();
		m_chart = chart;
		if (chart != nullptr) {
			chart->setParent(this);
			m_contentLayout->addWidget(chart);
			chart->installEventFilter(this);
			for (QWidget * w : chart->findChildren<QWidget *>())
				w->installEventFilter(this);
			connect(chart, &SCI::Chart::contextMenuRequested, this, &ChartView::onChartMenuRequested);
			connect(chart, &SCI::Chart::pickerTextChanged, this, &ChartView::pickerTextChanged);
		}
	}
	m_viewTable = viewTable;
	// a hidden table follows no chart model, so that only shown tables cost time
	const bool table = viewTable && chart != nullptr;
	m_table->setChartModel(table ? chart->model() : nullptr);
	m_table->setExportName(mapperNames.value(mapperIndex));
	m_table->setVisible(table);
	if (chart != nullptr)
		chart->setVisible(!table);
	m_tableButton->setChecked(table);
	m_tableButton->setEnabled(chart != nullptr);
	m_placeholder->setVisible(chart == nullptr);
	m_placeholder->setText(mapperNames.isEmpty() ? tr("The session contains no charts yet.")
												 : tr("No chart selected. Choose a chart from the list above."));
}


void ChartView::setDecimalPlaces(int decimalPlaces) {
	m_table->tableModel()->setDecimalPlaces(decimalPlaces);
}


void ChartView::setFocused(bool focused) {
	setProperty("focused", focused);
	// the style sheet draws focused views differently; re-apply it
	style()->unpolish(this);
	style()->polish(this);
}


void ChartView::takeKeyboardFocus() {
	if (m_chart.isNull())
		m_chartList->setFocus(Qt::OtherFocusReason);
	else if (m_table->isVisibleTo(this))
		m_table->setFocus(Qt::OtherFocusReason);
	else
		m_chart->setFocus(Qt::OtherFocusReason);
}


bool ChartView::eventFilter(QObject * watched, QEvent * event) {
	if (event->type() == QEvent::MouseButtonPress)
		emit activated(m_widgetId);
	else if (event->type() == QEvent::FocusIn) {
		const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
		if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
			emit activated(m_widgetId);
	}
	return QFrame::eventFilter(watched, event);
}


void ChartView::mousePressEvent(QMouseEvent * event) {
	emit activated(m_widgetId);
	QFrame::mousePressEvent(event);
}


void ChartView::dragEnterEvent(QDragEnterEvent * event) {
	if (event->mimeData()->hasFormat(OVP::DataSetMimeData::MIME_TYPE) && (event->possibleActions() & Qt::CopyAction)) {
		event->setDropAction(Qt::CopyAction);
		event->accept();
	}
}


void ChartView::dropEvent(QDropEvent * event) {
	FUNCID(ChartView::dropEvent);
	const std::vector<OVP::DataSetMimeData::DataSet> dataSets = OVP::DataSetMimeData::read(event->mimeData());
	if (dataSets.empty()) {
		ZEB::reportWarning("The dropped data sets cannot be read; nothing is changed.", FUNC_ID);
		event->ignore();
		return;
	}
	event->setDropAction(Qt::CopyAction);
	event->accept();
	emit activated(m_widgetId);
	emit dataSetsDropped(OVP::DataSetMimeData::mapperDataSets(dataSets));
}


void ChartView::onChartListActivated(int index) {
	if (index - 1 != m_mapperIndex)
		emit mapperChosen(m_widgetId, index - 1);
}


void ChartView::onChartMenuRequested(const SCI::ChartElement & element, const QPoint & globalPos) {
	emit activated(m_widgetId);
	emit chartMenuRequested(element, globalPos);
}


void ChartView::detachChart() {
	if (m_chart.isNull())
		return;
	disconnect(m_chart, &SCI::Chart::contextMenuRequested, this, &ChartView::onChartMenuRequested);
	disconnect(m_chart, &SCI::Chart::pickerTextChanged, this, &ChartView::pickerTextChanged);
	m_chart->removeEventFilter(this);
	for (QWidget * w : m_chart->findChildren<QWidget *>())
		w->removeEventFilter(this);
	m_chart->hide();
	m_chart->setParent(nullptr);
	m_chart.clear();
}
