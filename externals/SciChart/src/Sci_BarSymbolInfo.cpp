#include "Sci_BarSymbolInfo.h"

namespace SCI {

BarSymbolInfo::BarSymbolInfo(int seriesIndex) {
	static const Qt::GlobalColor PALETTE[] = {
		Qt::blue, Qt::red, Qt::darkGreen, Qt::darkYellow, Qt::magenta, Qt::cyan, Qt::darkGray
	};
	const int n = static_cast<int>(sizeof(PALETTE)/sizeof(PALETTE[0]));
	m_color = QColor(PALETTE[(seriesIndex < 0 ? 0 : seriesIndex) % n]);
}

} // namespace SCI
