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
#include <QVBoxLayout>

#include <ZEB_FunctionId.h>
#include <ZEB_MessageHandler.h>

#include <OVP_DataSetMimeData.h>

#include <Sci_Chart.h>

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
	layout->addLayout(m_contentLayout, 1);

	connect(m_chartList, QOverload<int>::of(&QComboBox::activated), this, &ChartView::onChartListActivated);
	setFocused(false);
}


ChartView::~ChartView() {
	detachChart();
}


SCI::Chart * ChartView::chart() const {
	return m_chart.data();
}


void ChartView::setContent(const QStringList & mapperNames, int mapperIndex, SCI::Chart * chart) {
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
			chart->show();
		}
	}
	m_placeholder->setVisible(chart == nullptr);
	m_placeholder->setText(mapperNames.isEmpty() ? tr("The session contains no charts yet.")
												 : tr("No chart selected. Choose a chart from the list above."));
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
