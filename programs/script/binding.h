#pragma once

struct mrb_state;

/// Defines the module Orvel, through which scripts reach the script classes.
void defineOrvel(mrb_state *mrb);
