// What browsers have and TypeScript does not know of.

interface CloseWatcher {
    onclose: (() => void) | null;
}
declare var CloseWatcher: { new (): CloseWatcher };

interface Navigator {
    readonly userAgentData?: { readonly platform: string };
}
