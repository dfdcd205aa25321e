#include "ZEB_MessageHandler.h"

#include <ctime>
#include <iostream>
#include <cstdio>

#include <unistd.h>

namespace ZEB {

namespace {

/*! The handler in use; null means the default handler. */
MessageHandler * g_currentHandler = nullptr;

MessageHandler & defaultHandler() {
	static MessageHandler handler;
	return handler;
}

/*! Inserts prefix after every line break of text except a final one. */
std::string prefixEveryLine(const std::string & text, const std::string & prefix) {
	std::string result;
	result.reserve(text.size() + prefix.size());
	result += prefix;
	for (std::size_t i = 0; i < text.size(); ++i) {
		result += text[i];
		if (text[i] == '\n' && i + 1 < text.size())
			result += prefix;
	}
	return result;
}

/*! ANSI highlighting per message type for terminals (bright yellow, red, magenta). */
const char * ansiColor(MsgType type) {
	switch (type) {
		case MSG_WARNING	: return "\033[93m";
		case MSG_ERROR		: return "\033[91m";
		case MSG_DEBUG		: return "\033[95m";
		default				: return nullptr;
	}
}

} // namespace


MessageHandler::MessageHandler() = default;

MessageHandler::~MessageHandler() {
	if (g_currentHandler == this)
		g_currentHandler = nullptr;
}


MessageHandler * MessageHandler::current() {
	return g_currentHandler != nullptr ? g_currentHandler : &defaultHandler();
}


void MessageHandler::setCurrent(MessageHandler * handler) {
	g_currentHandler = (handler == &defaultHandler()) ? nullptr : handler;
}


const char * MessageHandler::typeLabel(int type) {
	switch (type) {
		case MSG_PROGRESS	:
		case MSG_CONT		: return "[Progress]\t";
		case MSG_WARNING	: return "[Warning ]\t";
		case MSG_ERROR		: return "[Error   ]\t";
		case MSG_DEBUG		: return "[Debug   ]\t";
		default				: return "[Invalid ]\t";
	}
}


std::string MessageHandler::logPrefix(MsgType type, const char * functionId) const {
	std::string prefix;
	if (!m_timeStampFormat.empty()) {
		std::time_t now = std::time(nullptr);
		std::tm local{};
		localtime_r(&now, &local);
		char buf[128];
		std::size_t len = std::strftime(buf, sizeof(buf), m_timeStampFormat.c_str(), &local);
		prefix.append(buf, len);
		prefix += '\t';
	}
	prefix += typeLabel(type);
	std::string id = functionId != nullptr ? functionId : "";
	if (id.size() < m_contextColumnWidth)
		id.append(m_contextColumnWidth - id.size(), ' ');
	prefix += id;
	prefix += '\t';
	prefix.append(2*static_cast<std::size_t>(m_indentation), ' ');
	return prefix;
}


void MessageHandler::message(const std::string & msg, MsgType type, const char * functionId, int verboseLevel) {
	const bool alwaysShown = (type == MSG_ERROR || type == MSG_DEBUG);
	if (!alwaysShown &&
		verboseLevel > m_requestedLogfileVerbosityLevel &&
		verboseLevel > m_requestedConsoleVerbosityLevel)
	{
		return;
	}

	const std::string indent(2*static_cast<std::size_t>(m_indentation), ' ');
	// level 0 is console-only chatter: shown whatever the console level, never logged
	const bool toConsole = alwaysShown || verboseLevel == 0 || verboseLevel <= m_requestedConsoleVerbosityLevel;
	const bool toLog = m_logfile != nullptr &&
			(alwaysShown || (verboseLevel >= 1 && verboseLevel <= m_requestedLogfileVerbosityLevel));

	if (type == MSG_CONT) {
		if (toLog)
			*m_logfile << msg << std::flush;
		if (toConsole)
			writeConsole(msg, type);
		return;
	}

	const bool addLineEnd = (type == MSG_WARNING || type == MSG_ERROR || type == MSG_DEBUG);
	if (toLog) {
		*m_logfile << prefixEveryLine(msg, logPrefix(type, functionId));
		if (addLineEnd)
			*m_logfile << '\n';
		m_logfile->flush();
	}
	if (toConsole) {
		std::string text = prefixEveryLine(msg, indent);
		if (addLineEnd)
			text += '\n';
		writeConsole(text, type);
	}
}


void MessageHandler::writeConsole(const std::string & text, MsgType type) {
	static const bool isTerminal = ::isatty(::fileno(stdout)) != 0;
	const char * color = isTerminal ? ansiColor(type) : nullptr;
	if (color != nullptr) {
		// keep the line end outside the colour so that a terminal never carries it over
		std::size_t len = text.size();
		while (len > 0 && text[len-1] == '\n')
			--len;
		std::cout << color << text.substr(0, len) << "\033[0m" << text.substr(len);
	}
	else {
		std::cout << text;
	}
	std::cout.flush();
	if (type == MSG_ERROR)
		std::cerr.flush();
}


bool MessageHandler::openLog(const std::string & filename, bool append, std::string & errmsg) {
	closeLog();
	std::unique_ptr<std::ofstream> stream(new std::ofstream);
	if (append)
		stream->open(filename, std::ios_base::out | std::ios_base::app);
	else
		stream->open(filename, std::ios_base::out | std::ios_base::trunc);
	if (!stream->is_open() || !stream->good()) {
		errmsg = "Cannot open/create logfile '" + filename + "'.";
		return false;
	}
	if (append)
		*stream << "\n----------- continued -------------\n" << std::endl;
	m_logfile = std::move(stream);
	return true;
}


void MessageHandler::closeLog() {
	m_logfile.reset();
}


MessageIndentor::MessageIndentor() {
	MessageHandler * h = MessageHandler::current();
	h->setIndentation(h->indentation() + 1);
}

MessageIndentor::~MessageIndentor() {
	MessageHandler * h = MessageHandler::current();
	h->setIndentation(h->indentation() - 1);
}


void reportProgress(const std::string & msg, const char * functionId, int verboseLevel) {
	MessageHandler::current()->message(msg, MSG_PROGRESS, functionId, verboseLevel);
}

void reportWarning(const std::string & msg, const char * functionId, int verboseLevel) {
	MessageHandler::current()->message(msg, MSG_WARNING, functionId, verboseLevel);
}

void reportError(const std::string & msg, const char * functionId, int verboseLevel) {
	MessageHandler::current()->message(msg, MSG_ERROR, functionId, verboseLevel);
}

void reportDebug(const std::string & msg, const char * functionId, int verboseLevel) {
	MessageHandler::current()->message(msg, MSG_DEBUG, functionId, verboseLevel);
}

} // namespace ZEB
