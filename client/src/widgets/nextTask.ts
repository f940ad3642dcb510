/** Calls it in a task of its own, and at once, unlike a timer. */
export function nextTask(call: () => void): void {
    const { port1, port2 } = new MessageChannel();
    port1.onmessage = () => {
        port1.close();
        call();
    };
    port2.postMessage(undefined);
}
