// Texts and files in bytes, as the program counts and takes them.

export interface Mark { first: number; length: number }

// A place in the text counts units of UTF-16, one in its bytes those of UTF-8.
export const bytesBefore = (text: string, place: number): number => new TextEncoder().encode(text.slice(0, place)).length;
export const placeOfByte = (text: string, bytes: number): number => new TextDecoder().decode(new TextEncoder().encode(text).subarray(0, bytes)).length;

export function markOf({ value, selectionStart, selectionEnd }: HTMLInputElement | HTMLTextAreaElement): Mark {
  const first = bytesBefore(value, selectionStart ?? 0);
  return { first, length: bytesBefore(value, selectionEnd ?? 0) - first };
}

export function setMark(line: HTMLInputElement, { first, length }: Mark): void {
  line.setSelectionRange(placeOfByte(line.value, first), placeOfByte(line.value, first + length));
}

export function bytesOfBase64(base64: string): Uint8Array {
  return Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
}

export function base64Of(bytes: Blob): Promise<string> {
  return new Promise((take, refuse) => {
    const reader = new FileReader();
    reader.onload = () => take(String(reader.result).split(",", 2)[1] ?? "");
    reader.onerror = () => refuse(reader.error);
    reader.readAsDataURL(bytes);
  });
}
