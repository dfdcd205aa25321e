#include "DATAIO_ValueStore.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "DATAIO_MemoryAdvice.h"

namespace DATAIO {

ValueStore::~ValueStore() {
	release();
}


ValueStore::ValueStore(ValueStore && other) noexcept :
	m_buffer(other.m_buffer), m_adopted(std::move(other.m_adopted)), m_capacityRows(other.m_capacityRows), m_n(other.m_n),
	m_loaded(std::move(other.m_loaded)), m_loadedCount(other.m_loadedCount)
{
	other.m_buffer = nullptr;
	other.m_capacityRows = 0;
	other.m_loaded.clear();
	other.m_loadedCount = 0;
}


ValueStore & ValueStore::operator=(ValueStore && other) noexcept {
	if (this != &other) {
		release();
		m_buffer = other.m_buffer;
		m_adopted = std::move(other.m_adopted);
		m_capacityRows = other.m_capacityRows;
		m_n = other.m_n;
		m_loaded = std::move(other.m_loaded);
		m_loadedCount = other.m_loadedCount;
		other.m_buffer = nullptr;
		other.m_capacityRows = 0;
		other.m_loaded.clear();
		other.m_loadedCount = 0;
	}
	return *this;
}


void ValueStore::reset(std::size_t valuesPerRow) {
	release();
	m_capacityRows = 0;
	m_n = valuesPerRow;
	m_loaded.clear();
	m_loaded.shrink_to_fit();
	m_loadedCount = 0;
}


void ValueStore::adopt(std::vector<double> && values, std::size_t rows) {
	reset(m_n);
	m_adopted = std::move(values);
	m_buffer = m_adopted.empty() ? nullptr : m_adopted.data();
	m_capacityRows = rows;
	m_loaded.assign(rows, true);
	m_loadedCount = rows;
}


void ValueStore::resize(std::size_t rows) {
	for (std::size_t r = rows; r < m_loaded.size(); ++r)
		if (m_loaded[r])
			--m_loadedCount;
	m_loaded.resize(rows, false);
}


const double * ValueStore::row(std::size_t r) const {
	if (m_n == 0)
		return &m_empty;
	return m_buffer + r*m_n;
}


double * ValueStore::rowForWriting(std::size_t r) {
	if (m_n == 0)
		return &m_empty;
	ensureCapacity();
	return m_buffer + r*m_n;
}


void ValueStore::setLoaded(std::size_t r) {
	if (!m_loaded[r]) {
		m_loaded[r] = true;
		++m_loadedCount;
	}
}


void ValueStore::erase(std::size_t from, std::size_t to) {
	if (m_n != 0 && m_buffer != nullptr)
		std::memmove(m_buffer + from*m_n, m_buffer + to*m_n, (m_loaded.size() - to)*m_n*sizeof(double));
	for (std::size_t r = from; r < to; ++r)
		if (m_loaded[r])
			--m_loadedCount;
	m_loaded.erase(m_loaded.begin() + static_cast<std::ptrdiff_t>(from),
				   m_loaded.begin() + static_cast<std::ptrdiff_t>(to));
}


void ValueStore::ensureCapacity() {
	const std::size_t rows = m_loaded.size();
	if (rows <= m_capacityRows)
		return;
	if (rows > std::numeric_limits<std::size_t>::max()/sizeof(double)/m_n)
		throw std::bad_alloc();
	double * p;
	if (!m_adopted.empty()) {
		// adopted storage cannot be realloc'ed: move the rows into a buffer of our own
		p = static_cast<double*>(std::malloc(rows*m_n*sizeof(double)));
		if (p == nullptr)
			throw std::bad_alloc();
		std::memcpy(p, m_buffer, m_capacityRows*m_n*sizeof(double));
		std::vector<double>().swap(m_adopted);
	}
	else {
		p = static_cast<double*>(std::realloc(m_buffer, rows*m_n*sizeof(double)));
		if (p == nullptr)
			throw std::bad_alloc();
	}
	m_buffer = p;
	m_capacityRows = rows;
	MemoryAdvice::useHugePages(m_buffer, rows*m_n*sizeof(double));
}



void ValueStore::release() {
	if (m_adopted.empty())
		std::free(m_buffer);
	else
		std::vector<double>().swap(m_adopted);
	m_buffer = nullptr;
	m_capacityRows = 0;
}

} // namespace DATAIO
