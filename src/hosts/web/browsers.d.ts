// What browsers have and TypeScript does not know of.

interface CloseWatcher {
    onclose: (() => void) | null;
    destroy(): void;
}
declare var CloseWatcher: { new (): CloseWatcher };

interface Navigator {
    readonly userAgentData?: { readonly platform: string };
}

interface LaunchParams {
    readonly targetURL?: string;
    readonly files?: readonly FileSystemFileHandle[];
}
declare var launchQueue: { setConsumer(use: (launch: LaunchParams) => void): void } | undefined;

interface TrustedTypePolicy {
    createScriptURL(input: string): string;
}
declare var trustedTypes: {
    createPolicy(name: string, rules: { createScriptURL(input: string): string }): TrustedTypePolicy;
} | undefined;
