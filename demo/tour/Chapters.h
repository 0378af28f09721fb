#pragma once

class Tour;

// The whole walk, in order; each chapter begins where the one before ended.
void walkThrough(Tour& tour);

void visitHome(Tour& tour);
void visitChangesAndCategories(Tour& tour);
void queuePackages(Tour& tour);
void runQueue(Tour& tour);
void visitSearch(Tour& tour);
void visitManage(Tour& tour);
void visitSources(Tour& tour);
