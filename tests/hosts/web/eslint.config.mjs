/** What TypeScript does not see, for the page and its tests; nothing that is only a matter of taste. */
const rules = `
    array-callback-return curly default-case-last eqeqeq no-case-declarations no-cond-assign no-constant-condition
    no-constructor-return no-debugger no-dupe-else-if no-duplicate-case no-else-return no-empty no-eval no-fallthrough
    no-implicit-coercion no-loss-of-precision no-prototype-builtins no-self-assign no-self-compare no-shadow
    no-sparse-arrays no-template-curly-in-string no-throw-literal no-unmodified-loop-condition no-unreachable
    no-unsafe-finally no-unsafe-optional-chaining no-unused-expressions no-unused-private-class-members no-useless-catch
    no-useless-concat no-useless-rename no-useless-return no-var object-shorthand prefer-const
    prefer-promise-reject-errors prefer-template use-isnan valid-typeof
`.trim().split(/\s+/);

export default [{
    files: ["**/*.js", "**/*.mjs"],
    linterOptions: { reportUnusedDisableDirectives: "error" },
    rules: {
        ...Object.fromEntries(rules.map((rule) => [rule, "error"])),
        "no-unused-vars": ["error", { argsIgnorePattern: "^_" }],
    },
}, {
    // For browsers of long ago.
    files: ["**/supported.js"],
    languageOptions: { ecmaVersion: 5, sourceType: "script" },
    rules: { "no-var": "off", "object-shorthand": "off", "prefer-template": "off" },
}];
