#include "OVP_DataSetMimeData.h"

#include <limits>

#include <QDataStream>
#include <QList>
#include <QMimeData>
#include <QUrl>

namespace OVP {

const char * const DataSetMimeData::MIME_TYPE = "application/x-orvane-datasets";

namespace {

/*! Stream version of the encoded list. */
const QDataStream::Version STREAM_VERSION = QDataStream::Qt_5_15;

} // namespace


QMimeData * DataSetMimeData::create(const std::vector<DataSet> & dataSets) {
	QByteArray bytes;
	QDataStream out(&bytes, QIODevice::WriteOnly);
	out.setVersion(STREAM_VERSION);
	out << quint32(dataSets.size());
	QList<QUrl> urls;
	for (const DataSet & dataSet : dataSets) {
		out << dataSet.m_path << qint64(dataSet.m_column);
		const QUrl url = QUrl::fromLocalFile(dataSet.m_path);
		if (!urls.contains(url))
			urls << url;
	}
	QMimeData * mimeData = new QMimeData;
	mimeData->setData(MIME_TYPE, bytes);
	mimeData->setUrls(urls);
	return mimeData;
}


std::vector<DataSetMimeData::DataSet> DataSetMimeData::read(const QMimeData * mimeData) {
	if (mimeData == nullptr || !mimeData->hasFormat(MIME_TYPE))
		return {};
	const QByteArray bytes = mimeData->data(MIME_TYPE);
	QDataStream in(bytes);
	in.setVersion(STREAM_VERSION);
	quint32 count = 0;
	in >> count;
	std::vector<DataSet> dataSets;
	// the count comes from outside: grow with what is really there instead of reserving it
	for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
		DataSet dataSet;
		qint64 column = NO_COLUMN;
		in >> dataSet.m_path >> column;
		dataSet.m_column = column;
		if (column < NO_COLUMN || column > std::numeric_limits<std::uint32_t>::max())
			return {};
		if (in.status() == QDataStream::Ok)
			dataSets.push_back(dataSet);
	}
	if (in.status() != QDataStream::Ok || !in.atEnd())
		return {};
	return dataSets;
}

std::vector<Mapper::DataSet> DataSetMimeData::mapperDataSets(const std::vector<DataSet> & dataSets) {
	std::vector<Mapper::DataSet> result;
	for (const DataSet & dataSet : dataSets) {
		Mapper::DataSet d;
		d.m_fileName = dataSet.m_path;
		d.m_column = dataSet.m_column == NO_COLUMN ? 0 : static_cast<std::uint32_t>(dataSet.m_column);
		result.push_back(d);
	}
	return result;
}

} // namespace OVP
