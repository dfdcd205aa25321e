#ifndef OVP_DataSetMimeDataH
#define OVP_DataSetMimeDataH

#include <cstdint>
#include <vector>

#include <QString>

#include "OVP_Mapper.h"

class QMimeData;

namespace OVP {

/*! The drag form of data sets taken from the data manager: a list of files, each with the
	column it refers to in a reference collection. Chart views accept drops of this type; the
	files travel as URLs as well, for other programs.
*/
class DataSetMimeData {
public:
	/*! One dragged data set. */
	struct DataSet {
		QString			m_path;
		/*! Column number of a reference collection (as its header lists it); NO_COLUMN for the
			whole file.
		*/
		std::int64_t	m_column = NO_COLUMN;
		bool operator==(const DataSet & other) const { return m_path == other.m_path && m_column == other.m_column; }
	};

	/*! Column of a data set that is a whole file. */
	static constexpr std::int64_t NO_COLUMN = -1;
	/*! The MIME type of the encoded list. */
	static const char * const MIME_TYPE;

	/*! New MIME data holding the data sets (the caller owns it). */
	static QMimeData * create(const std::vector<DataSet> & dataSets);
	/*! The data sets of MIME data; empty when it holds none or is damaged (a column outside
		NO_COLUMN and the largest column number included).
	*/
	static std::vector<DataSet> read(const QMimeData * mimeData);
	/*! The data sets as the mapper takes them: a whole file as column 0. */
	static std::vector<Mapper::DataSet> mapperDataSets(const std::vector<DataSet> & dataSets);
};

} // namespace OVP

#endif // OVP_DataSetMimeDataH
