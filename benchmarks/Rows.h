#pragma once

#include "BenchSession.h"

namespace bench {

// The rows of the table, each measured and printed by one routine.

void sweepSpeed(const std::filesystem::path& drawings);
void sessionsSpeed(const std::filesystem::path& drawings);
void checkOfXrefs(BenchSession& session);
void batchAgainstFileByFile(BenchSession& session);
void activation(BenchSession& session);
void editGuard(BenchSession& session);
void statusQuery(BenchSession& session);
void checkOut(BenchSession& session);
void titleBlock(BenchSession& session);
void moduleLoad(BenchSession& session);
void showing(BenchSession& session);

}  // namespace bench
