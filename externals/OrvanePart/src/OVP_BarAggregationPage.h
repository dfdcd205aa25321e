#ifndef OVP_BarAggregationPageH
#define OVP_BarAggregationPageH

#include <QPointer>

#include "OVP_BarAggregation.h"
#include "OVP_PropertyPage.h"

namespace OVP {

class Mapper;

/*! The page "Bars" of a bar chart: the period of the bars (month, year, whole series), the
	statistic they show and the threshold of counted days (in the unit of the first series'
	data; only while days are counted). An edit becomes an undo step (UndoBarAggregation); the
	page follows every change of the chart, also by undo and reload.
*/
class BarAggregationPage : public PropertyPage {
	Q_OBJECT
public:
	/*! The page of the bar chart of mapper (which must be one). */
	explicit BarAggregationPage(Mapper & mapper, QObject * parent = nullptr);

	/*! The title of the page, also before it is made. */
	static QString pageTitle();
	QString title() const override { return pageTitle(); }

protected:
	void onEditRequested(QPB::Property * property, const QVariant & newValue) override;

private:
	/*! What a row edits (its tag). */
	enum Row {
		R_Period,
		R_Statistic,
		R_Threshold
	};

	/*! Shows the chart's settings. */
	void refresh();
	/*! The settings of the chart. */
	BarAggregation::Settings settings() const;

	QPointer<Mapper>	m_mapper;
	QPB::Property *		m_period = nullptr;
	QPB::Property *		m_statistic = nullptr;
	QPB::Property *		m_threshold = nullptr;
};

} // namespace OVP

#endif // OVP_BarAggregationPageH
