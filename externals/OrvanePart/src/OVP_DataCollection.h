#ifndef OVP_DataCollectionH
#define OVP_DataCollectionH

#include <cstdint>
#include <memory>
#include <vector>

#include <QColor>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <DATAIO_DataIO.h>

namespace OVP {

/*! One row of the data manager: a data file (an output file, or a reference collection of
	several data sets) with what its header says, the state of the file when the header was read
	and the folder it is listed from.
*/
class DataCollection {
public:
	/*! The short text of a data format: "2D", "3D", "4D" or "5D"; empty when undetermined. */
	static QString dataFormatText(DATAIO::DataIO::DataFormat format);

	/*! A file size for display, in the unit that keeps the number at or below 1024 whole units
		("%L1 B" up to 1024 bytes, then "%L1 kB", "%L1 MB" and "%L1 GB" with two decimals; a
		unit is used only above one whole unit, so 1048576 bytes show as "1,024.00 kB").
	*/
	static QString sizeText(qint64 bytes);

	/*! The names of the data sets of a reference output, one per column: "quantity [unit]" of
		each column of a file read by a data file reader, else those its quantity names
		(DATAIO::DataIO::referenceDataSetNames()), else "Column %1" with the column numbers.
	*/
	static QStringList dataSetNames(const DATAIO::DataIO & header);

	/*! Takes data format, output type, quantity, units and, of a reference output, the data
		sets from a header.
	*/
	void takeHeader(const DATAIO::DataIO & header);

	/*! The file name without folder. */
	QString fileName() const;
	/*! A reference output with more than one column: listed as one row of several data sets. */
	bool isReferenceCollection() const { return m_dataSetColumns.size() > 1; }
	/*! The quantity as the table shows it: "Reference [%1 datasets]" for a reference collection. */
	QString quantityText() const;

	/*! Absolute path of the file as found in its folder. */
	QString								m_path;
	/*! The listed folder the file belongs to. */
	QString								m_directory;
	DATAIO::DataIO::DataFormat			m_dataFormat = DATAIO::DataIO::NUM_DF;
	DATAIO::DataIO::OutputType			m_outputType = DATAIO::DataIO::NUM_T;
	QString								m_quantity;
	/*! The value unit; the distinct units of the columns, comma separated, for a file read by a
		data file reader.
	*/
	QString								m_valueUnit;
	QString								m_timeUnit;
	/*! Reference outputs: the column numbers of the header, one per data set; else empty. */
	std::vector<std::uint32_t>			m_dataSetColumns;
	/*! Reference outputs: one name per column (see dataSetNames()); else empty. */
	QStringList							m_dataSetNames;
	/*! Modification time and size of the file before its header was read. */
	QDateTime							m_lastModified;
	qint64								m_size = 0;
	/*! The geometry file the data format was decided with, held so that the next output
		referring to it does not read it again; null when none was needed.
	*/
	std::shared_ptr<const DATAIO::GeoFile>	m_geometry;
};

} // namespace OVP

#endif // OVP_DataCollectionH
