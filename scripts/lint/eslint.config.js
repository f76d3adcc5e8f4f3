'use strict';
// scripts/lint/eslint.config.js: what eslint asks of the JavaScript here: CommonJS for Node.js 18, without a step that
// builds it.

const js = require('@eslint/js');
const globals = require('globals');

module.exports = [
    { ignores: ['**/node_modules/', 'build/', 'host/node/lib/'] },
    js.configs.recommended,
    {
        languageOptions: { sourceType: 'commonjs', ecmaVersion: 2022, globals: globals.node },
        linterOptions: { reportUnusedDisableDirectives: 'error' },
        rules: {
            'array-callback-return': 'error',
            'consistent-return': 'error',
            'curly': ['error', 'multi-line'],
            'default-case-last': 'error',
            'eqeqeq': 'error',
            'no-constant-binary-expression': 'error',
            'no-else-return': 'error',
            'no-eval': 'error',
            'no-implicit-globals': 'error',
            'no-new-func': 'error',
            'no-self-compare': 'error',
            'no-shadow': 'error',
            'no-throw-literal': 'error',
            'no-unreachable-loop': 'error',
            'no-unused-expressions': 'error',
            'no-unused-vars': ['error', { argsIgnorePattern: '^_' }],
            'no-use-before-define': ['error', { functions: false, classes: false, variables: false }],
            'no-useless-rename': 'error',
            'no-useless-return': 'error',
            'no-var': 'error',
            'object-shorthand': 'error',
            'prefer-const': 'error',
            'prefer-rest-params': 'error',
            'prefer-template': 'error',
            'strict': ['error', 'global'],
            'yoda': 'error',
        },
    },
    {
        // What `tarn-gui create` makes is an ES module.
        files: ['host/node/templates/**'],
        languageOptions: { sourceType: 'module' },
    },
    {
        // An example shows every method of a handler with what it is given, used or not.
        files: ['examples/**'],
        rules: { 'no-unused-vars': ['error', { args: 'none' }] },
    },
];
