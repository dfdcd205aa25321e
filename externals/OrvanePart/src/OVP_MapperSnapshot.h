#ifndef OVP_MapperSnapshotH
#define OVP_MapperSnapshotH

#include <memory>

#include <QString>

class TiXmlElement;

namespace OVP {

class DataManager;
class Mapper;

/*! A mapper as it was at one moment: its name and its Mapper element written with all
	properties. A new mapper with the same extractors, cuts, manipulators, models and chart
	properties is read back from it, e.g. to duplicate a chart or to bring back a deleted one.
*/
class MapperSnapshot {
public:
	/*! Takes the snapshot of a mapper. */
	explicit MapperSnapshot(const Mapper & mapper);
	~MapperSnapshot();
	MapperSnapshot(MapperSnapshot && other) noexcept;
	MapperSnapshot & operator=(MapperSnapshot && other) noexcept;

	/*! A new mapper read back from the snapshot, named as the original; its data files are
		opened through dataManager. Throws ZEB::Exception (e.g. when a data file is gone).
	*/
	std::unique_ptr<Mapper> restore(DataManager & dataManager) const;

	const QString & name() const { return m_name; }

private:
	QString							m_name;
	std::unique_ptr<TiXmlElement>	m_element;
};

} // namespace OVP

#endif // OVP_MapperSnapshotH
