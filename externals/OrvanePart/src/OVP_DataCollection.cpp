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


QStringList DataCollection::dataSetNames(const DATAIO::DataIO & header) {
	QStringList result;
	if (header.hasColumnProperties()) {
		for (std::size_t i = 0; i < header.nums().size(); ++i)
			result << QString("%1 [%2]").arg(QString::fromStdString(header.columnQuantity(i)),
											 QString::fromStdString(header.columnUnit(i)));
		return result;
	}
	const std::vector<std::string> names = header.referenceDataSetNames();
	for (std::size_t i = 0; i < header.nums().size(); ++i)
		result << (names.empty() ? QString("Column %1").arg(header.nums()[i]) : QString::fromStdString(names[i]));
	return result;
}


void DataCollection::takeHeader(const DATAIO::DataIO & header) {
	m_dataFormat = header.dataFormat();
	m_outputType = header.type();
	m_quantity = QString::fromStdString(header.quantity());
	m_valueUnit = QString::fromStdString(header.valueUnit());
	if (header.hasColumnProperties()) {
		// a file of a data file reader: its columns may differ in unit
		QStringList units;
		for (std::size_t i = 0; i < header.nums().size(); ++i) {
			const QString unit = QString::fromStdString(header.columnUnit(i));
			if (!units.contains(unit))
				units << unit;
		}
		m_valueUnit = units.join(", ");
	}
	m_timeUnit = QString::fromStdString(header.timeUnit());
	m_dataSetColumns.clear();
	m_dataSetNames.clear();
	if (header.type() == DATAIO::DataIO::T_REFERENCE) {
		m_dataSetColumns = header.nums();
		m_dataSetNames = dataSetNames(header);
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
