#ifndef OVP_DataCollectionReaderH
#define OVP_DataCollectionReaderH

#include <QString>

#include "OVP_DataCollection.h"
#include "OVP_GeometryCache.h"

namespace OVP {

class FileReader;

/*! Reads and checks the header of a data file for the data manager: only the header, never the
	data section, so that a file of any size is listed at once. The geometry files that field and
	flux outputs need for their data format are read once per geometry file.
*/
class DataCollectionReader {
public:
	/*! The collection of a file, its m_directory left empty. Throws ZEB::Exception whose
		newest message says why the file cannot be listed: "Invalid/unrecognized data file or
		data/geometry file cannot be accessed." (with the cause attached) for a file or geometry
		that cannot be read, else the failed check of units and quantity.
	*/
	DataCollection read(const QString & path);

	/*! False for a file that only a data file reader's pattern offers ("*.txt", "*.csv"...) but
		that no reader takes and that is no output of the simulation program: a solver log or a
		note beside the results, not a data file. Such files are neither listed nor reported.
	*/
	static bool isDataFile(const QString & path);

	/*! Forgets geometries that no collection holds any longer. */
	void dropUnusedGeometries() { m_geometries.dropUnused(); }

	/*! Checks value unit, time unit and quantity of a header, as every data set that is listed or
		charted must have them; throws ZEB::Exception.
	*/
	static void checkHeader(const DATAIO::DataIO & header);

	/*! Reads the header of a file that a data file reader takes and checks the units it reports
		(every column's and the time unit); a failure of the reader is wrapped in "FileReader
		reported header error for file '%1': %2". Throws ZEB::Exception.
	*/
	static void readForeignHeader(const FileReader & reader, const std::string & fileName, DATAIO::DataIO & header);
	/*! Checks the units and quantity of a header a data file reader filled. */
	static void checkForeignHeader(const DATAIO::DataIO & header);

private:

	GeometryCache	m_geometries;
};

} // namespace OVP

#endif // OVP_DataCollectionReaderH
