#ifndef DEMO_SessionBuilderH
#define DEMO_SessionBuilderH

#include <memory>

#include <QString>

#include <OVP_Mapper.h>

namespace OVP {
class DataManager;
class ProjectHandler;
class SplitLayout;
}

namespace DEMO {

/*! Builds the demo session over the result set of the sample data generator: seven charts that
	show what Orvane does, made the way the user makes them in the program (a mapper from data
	files, then properties through the chart model roles):

	1. outdoor temperature and relative humidity in January, date axis, two y axes;
	2. temperature profile across the 1D wall at the cold time (see coldTime());
	3. colour grid of the wall temperature over depth and time;
	4. temperature field of the 2D corner at the cold time, with isotherms;
	5. heat flux arrows of the corner at the same time;
	6. VTT mould index at the cold inner corner surface;
	7. VTT wood decay behind the interior insulation of the wall.

	The session opens with charts 1, 3, 4 and 6 in a 2x2 split.
*/
class SessionBuilder {
public:
	/*! Number of charts of the demo session. */
	static constexpr int CHART_COUNT = 7;

	/*! A builder for the result set in dataDir. */
	explicit SessionBuilder(const QString & dataDir);

	/*! Replaces the project of the project handler by the demo session: the data folder as
		top-level directory, the charts and the split layout. Throws ZEB::Exception when a file
		is missing or a chart cannot be made.
	*/
	void build(OVP::ProjectHandler & handler);

	/*! The cold time shown by charts 2, 4 and 5, in hours since the start of the start year:
		the record of the corner temperature field at which the inner corner surface is coldest.
		Valid after build().
	*/
	double coldTime() const { return m_coldTime; }

private:
	/*! Absolute path of a file of the result set. */
	QString file(const char * name) const;
	/*! A new mapper of one data set. */
	std::unique_ptr<OVP::Mapper> newMapper(const char * fileName, EM::CutType cutType, unsigned int column = 0) const;
	/*! A new mapper of a model (type keyword, default parameters) fed by a temperature and a
		relative-humidity file.
	*/
	std::unique_ptr<OVP::Mapper> newModelMapper(const char * temperatureFile, const char * humidityFile,
												const char * modelType) const;
	/*! Finds the cold time (see coldTime()). */
	double findColdTime() const;
	/*! Moves the time cut of a mapper's (first) extractor to the cold time, locked there. */
	void cutAtColdTime(OVP::Mapper & mapper) const;
	/*! The cold time as text for chart titles. */
	QString coldTimeText() const;

	std::unique_ptr<OVP::Mapper> outdoorClimate() const;
	std::unique_ptr<OVP::Mapper> wallProfile() const;
	std::unique_ptr<OVP::Mapper> wallOverTime() const;
	std::unique_ptr<OVP::Mapper> cornerTemperature() const;
	std::unique_ptr<OVP::Mapper> cornerHeatFlux() const;
	std::unique_ptr<OVP::Mapper> mouldIndex() const;
	std::unique_ptr<OVP::Mapper> woodDecay() const;

	/*! Two rows of two views showing the given mappers, left to right, top to bottom. */
	static OVP::SplitLayout twoByTwo(int topLeft, int topRight, int bottomLeft, int bottomRight);

	QString					m_dataDir;
	OVP::DataManager *		m_dataManager = nullptr;
	double					m_coldTime = 0;
	/*! Year in which the time of the result set starts. */
	int						m_startYear = 0;
};

} // namespace DEMO

#endif // DEMO_SessionBuilderH
