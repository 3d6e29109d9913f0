#include <xercesc/util/DefaultPanicHandler.hpp>
#include <xercesc/util/NetAccessors/Curl/CurlNetAccessor.hpp>

#include <cstdlib>

/// Takes the place of two parts of the XML library where its archive is linked in: its way to the
/// network, which no document may use and whose forty libraries take longer to load than a small
/// document to read, and what ends the program where the library can't be set up.

XERCES_CPP_NAMESPACE_BEGIN

const XMLCh CurlNetAccessor::fgMyName[] = {0};
int CurlNetAccessor::fgCurlInitCount = 0;

CurlNetAccessor::CurlNetAccessor() = default;

CurlNetAccessor::~CurlNetAccessor() = default;

void CurlNetAccessor::initCurl() {}

void CurlNetAccessor::cleanupCurl() {}

BinInputStream* CurlNetAccessor::makeNew(const XMLURL&, const XMLNetHTTPInfo*) { return nullptr; }

void DefaultPanicHandler::panic(const PanicHandler::PanicReasons) { std::abort(); }

XERCES_CPP_NAMESPACE_END
