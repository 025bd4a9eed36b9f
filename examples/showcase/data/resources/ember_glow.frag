// Posterises the emblem and lays a warm glow over its centre.
varying highp vec2 qt_TexCoord0;
uniform sampler2D source;
uniform lowp float qt_Opacity;
uniform lowp float strength;
uniform lowp float levels;
uniform lowp vec4 tint;
void main() {
    lowp vec4 c = texture2D(source, qt_TexCoord0);
    lowp vec3 rgb = floor(c.rgb * levels + 0.5) / levels;
    lowp float glow = (1.0 - smoothstep(0.0, 0.7, distance(qt_TexCoord0, vec2(0.5)))) * strength;
    gl_FragColor = vec4(mix(rgb, tint.rgb, glow * 0.5) * c.a, c.a) * qt_Opacity;
}
