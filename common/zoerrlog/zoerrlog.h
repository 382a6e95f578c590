#ifndef ZOERRLOG_ZOERRLOG_H
#define ZOERRLOG_ZOERRLOG_H

// All that a host of the library includes.

#include <zoerrlog/base/ZoByteString.h>
#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/base/ZoFile.h>
#include <zoerrlog/base/ZoGuard.h>
#include <zoerrlog/base/ZoLocks.h>
#include <zoerrlog/base/ZoSemaphore.h>
#include <zoerrlog/base/ZoTimeValue.h>
#include <zoerrlog/error/ZoError.h>
#include <zoerrlog/logger/ZoCallbackOutputs.h>
#include <zoerrlog/logger/ZoErrLogComponent.h>
#include <zoerrlog/logger/ZoInitLogger.h>
#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/logger/ZoLoggerList.h>
#include <zoerrlog/message/ZoArgList.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/output/ZoConsoleOutput.h>
#include <zoerrlog/output/ZoFileOutput.h>
#include <zoerrlog/output/ZoLogOutput.h>
#include <zoerrlog/trace/ZoKnownInfo.h>
#include <zoerrlog/trace/ZoThreadState.h>
#include <zoerrlog/trace/ZoThreadTraceData.h>
#include <zoerrlog/trace/ZoTraceConfigEvent.h>
#include <zoerrlog/trace/ZoTraceData.h>

#endif
