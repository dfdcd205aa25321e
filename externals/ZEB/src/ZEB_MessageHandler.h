#ifndef ZEB_MessageHandlerH
#define ZEB_MessageHandlerH

#include <fstream>
#include <memory>
#include <string>

namespace ZEB {

/*! Message types, numbered as they are stored and compared. */
enum MsgType {
	MSG_PROGRESS	= 0,	///< progress text, callers add their own "\n"
	MSG_CONT		= 1,	///< the rest of a line begun by an earlier message, written bare
	MSG_WARNING		= 2,
	MSG_ERROR		= 3,
	MSG_DEBUG		= 4
};

/*! The process-wide sink of console and log-file messages.
	It filters by verbosity level, highlights warnings, errors and debug messages on a terminal,
	and writes time-stamped, column-aligned lines to an optional log file. An application may
	install a derived handler as the current one (see setCurrent()).
*/
class MessageHandler {
public:
	MessageHandler();
	/*! Destroying the current handler makes the default handler current again. */
	virtual ~MessageHandler();

	MessageHandler(const MessageHandler &) = delete;
	MessageHandler & operator=(const MessageHandler &) = delete;

	/*! Writes a message to console and log file according to its type and verbosity level.
		\param msg The text; for progress messages it carries its own line end.
		\param type One of MsgType (other numbers are labelled "[Invalid ]").
		\param functionId Origin such as "[DataIO::read]", may be null.
		\param verboseLevel Level of detail; higher levels are shown only at higher verbosity.
	*/
	virtual void message(const std::string & msg, MsgType type = MSG_PROGRESS,
						 const char * functionId = nullptr, int verboseLevel = 1);

	/*! Writes the console copy of a message. The default writes UTF-8 to standard output,
		highlighted by type when standard output is a terminal; a derived handler may redirect it.
	*/
	virtual void writeConsole(const std::string & text, MsgType type);

	/*! Opens the log file, closing any open one. With append, a continuation marker is written.
		\return false with errmsg set when the file cannot be opened.
	*/
	bool openLog(const std::string & filename, bool append, std::string & errmsg);
	/*! Closes the log file, if one is open. */
	void closeLog();
	bool logFileOpen() const { return m_logfile != nullptr; }

	void setConsoleVerbosityLevel(int level) { m_requestedConsoleVerbosityLevel = level; }
	int consoleVerbosityLevel() const { return m_requestedConsoleVerbosityLevel; }
	void setLogfileVerbosityLevel(int level) { m_requestedLogfileVerbosityLevel = level; }
	int logfileVerbosityLevel() const { return m_requestedLogfileVerbosityLevel; }
	void setFunctionIdColumnWidth(unsigned int width) { m_contextColumnWidth = width; }
	/*! strftime format of the time stamp in log lines; an empty format turns time stamps off. */
	void setTimeStampFormat(const std::string & format) { m_timeStampFormat = format; }
	void setIndentation(int level) { m_indentation = level < 0 ? 0 : level; }
	int indentation() const { return m_indentation; }

	/*! The log label of a message type, ten characters and a tab. */
	static const char * typeLabel(int type);

	/*! The handler that receives all messages; a default one is created on first use. */
	static MessageHandler * current();
	/*! Makes the given handler current; null restores the default handler. */
	static void setCurrent(MessageHandler * handler);

protected:
	/*! Builds the log line prefix: time stamp, label, padded function id, indentation. */
	std::string logPrefix(MsgType type, const char * functionId) const;

private:
	unsigned int					m_contextColumnWidth = 40;
	int								m_requestedConsoleVerbosityLevel = 4;
	int								m_requestedLogfileVerbosityLevel = 2;
	std::unique_ptr<std::ofstream>	m_logfile;
	std::string						m_timeStampFormat = "%Y-%m-%d %H:%M:%S";
	int								m_indentation = 0;
};


/*! Increases the indentation of the current handler for its lifetime. */
class MessageIndentor {
public:
	MessageIndentor();
	~MessageIndentor();
	MessageIndentor(const MessageIndentor &) = delete;
	MessageIndentor & operator=(const MessageIndentor &) = delete;
};


/*! Convenience forms that send a message to the current handler. */
void reportProgress(const std::string & msg, const char * functionId = nullptr, int verboseLevel = 1);
void reportWarning(const std::string & msg, const char * functionId = nullptr, int verboseLevel = 1);
void reportError(const std::string & msg, const char * functionId = nullptr, int verboseLevel = 1);
void reportDebug(const std::string & msg, const char * functionId = nullptr, int verboseLevel = 1);

} // namespace ZEB

#endif // ZEB_MessageHandlerH
