#include "OVP_DataCollection.h"

#include <QFileInfo>

namespace OVP {

QString DataCollection::dataFormatText(DATAIO::DataIO::DataFormat format) {
	switch (format) {
		case DATAIO::DataIO::DF_2D: return "2D";
		case DATAIO::DataIO::DF_3D: return "3D";
		case DATAIO::DataIO::DF_4D: return "4D";
		case DATAIO::DataIO::DF_5D: return "5D";
		case DATAIO::DataIO::NUM_DF: break;
	}
	return QString();
}


QString DataCollection::sizeText(qint64 bytes) {
	const qint64 kiB = 1024;
	const qint64 miB = kiB*kiB;
	const qint64 giB = miB*kiB;
	if (bytes <= kiB)
		return QString("%L1 B").arg(bytes);
	if (bytes <= miB)
		return QString("%L1 kB").arg(double(bytes)/kiB, 0, 'f', 2);
	if (bytes <= giB)
		return QString("%L1 MB").arg(double(bytes)/miB, 0, 'f', 2);
	return QString("%L1 GB").arg(double(bytes)/giB, 0, 'f', 2);
}


QStringList DataCollection::dataSetNames(const QString & quantity, const std::vector<std::uint32_t> & columns) {
	const int colon = quantity.indexOf(':');
	if (colon >= 0) {
		QStringList names = quantity.mid(colon + 1).split(',');
		for (QString & name : names)
			name = name.trimmed();
		if (names.size() == int(columns.size()) && !names.contains(QString()))
			return names;
	}
	QStringList names;
	for (std::uint32_t column : columns)
		names << QString("Column %1").arg(column);
	return names;
}


void DataCollection::takeHeader(const DATAIO::DataIO & header) {
	m_dataFormat = header.dataFormat();
	m_outputType = header.type();
	m_quantity = QString::fromStdString(header.quantity());
	m_valueUnit = QString::fromStdString(header.valueUnit());
	m_timeUnit = QString::fromStdString(header.timeUnit());
	m_dataSetColumns.clear();
	m_dataSetNames.clear();
	if (header.type() == DATAIO::DataIO::T_REFERENCE) {
		m_dataSetColumns = header.nums();
		m_dataSetNames = dataSetNames(m_quantity, m_dataSetColumns);
	}
}


QString DataCollection::fileName() const {
	return QFileInfo(m_path).fileName();
}


QString DataCollection::quantityText() const {
	if (isReferenceCollection())
		return QString("Reference [%1 datasets]").arg(m_dataSetColumns.size());
	return m_quantity;
}

} // namespace OVP
