#pragma once

/// Ends an operation that the user has already been told about.
class CUserException {};
