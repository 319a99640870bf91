#include "jobprogress.h"

JobProgress::~JobProgress() = default;
