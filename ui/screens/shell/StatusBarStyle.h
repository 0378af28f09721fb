#pragma once

// The colour of the system's status bar texts: light ones stand on the dark bars of the classic look.
enum class StatusBarStyle { Default, LightContent };
