'use strict';
// What is wrong with the arguments of the command.

class UsageError extends Error {}

module.exports = { UsageError };
