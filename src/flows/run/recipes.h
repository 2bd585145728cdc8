#pragma once

class TRunRecipe;

// What each tool is called with: see the table of GetRunTools.

void AddGhdlSteps(TRunRecipe* recipe);
void AddIcarusSteps(TRunRecipe* recipe);
void AddNvcSteps(TRunRecipe* recipe);
void AddVerilatorSteps(TRunRecipe* recipe);
